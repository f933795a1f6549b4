#ifndef WIDGETS_TITLE_BAR_BASE_H
#define WIDGETS_TITLE_BAR_BASE_H

#include <QWidget>

class QLabel;
class IconButton;
class CloseButton;

// Title bar for dock panels and frameless windows: icon, title, and the buttons
// "minimizeButton", "maximizeButton" and "closeButton" (found by object name by their users).
class TitleBarBase : public QWidget {
    Q_OBJECT
public:
    explicit TitleBarBase(QWidget* parent = nullptr);

    void SetWindowTitle(const QString& title);
    QString GetWindowTitle() const;
    void SetTitleBarIcon(const QString& iconPath);
    // Shows or hides the minimize and maximize buttons; the close button is always there.
    void SetMiniAndMaxIconShow(bool show);
    // Swaps the maximize button between "Full Screen" and "Exit Full Screen".
    void UpdateMinimizeIcon();
    bool IsMaximized() const { return maximized; }

Q_SIGNALS:
    void DoubleClick();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QLabel* iconLabel;
    QLabel* titleLabel;
    IconButton* minimizeButton;
    IconButton* maximizeButton;
    CloseButton* closeButton;
    bool maximized = false;
};

#endif

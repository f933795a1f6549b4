#ifndef WIDGETS_BUTTONS_H
#define WIDGETS_BUTTONS_H

#include <QPushButton>
#include <QString>

// Push buttons of the shared look. Style sheets select them by class name.
class Button : public QPushButton {
    Q_OBJECT
public:
    explicit Button(const QString& text = QString(), QWidget* parent = nullptr);
};

// The main action of a view ("Add", "OK").
class PrimaryButton : public Button {
    Q_OBJECT
public:
    explicit PrimaryButton(const QString& text = QString(), QWidget* parent = nullptr);
};

// A secondary action beside a primary one ("Set Name", "Cancel").
class SecondaryButton : public Button {
    Q_OBJECT
public:
    explicit SecondaryButton(const QString& text = QString(), QWidget* parent = nullptr);
};

// A flat square button that shows only an icon; the tool tip says what it does.
class IconButton : public Button {
    Q_OBJECT
public:
    IconButton(const QString& iconPath, const QString& toolTip, QWidget* parent = nullptr);
    void SetIconPath(const QString& iconPath);
    const QString& GetIconPath() const { return iconPath; }

private:
    QString iconPath;
};

// The cross that closes a window or a panel.
class CloseButton : public IconButton {
    Q_OBJECT
public:
    explicit CloseButton(QWidget* parent = nullptr);
};

#endif

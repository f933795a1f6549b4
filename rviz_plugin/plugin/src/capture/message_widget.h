#ifndef RVIZ_PLUGIN_MESSAGE_WIDGET_H
#define RVIZ_PLUGIN_MESSAGE_WIDGET_H

#include <QDialog>

class QLabel;
class QPushButton;

namespace rviz_plugin {

// The capture's message box: what is going on, its progress as "(%1%)" or "(%1/%2)", a warning picture on
// failure, and "Open" for the folder of a finished export.
class MessageWidget : public QDialog {
    Q_OBJECT

public:
    explicit MessageWidget(QWidget* parent = nullptr);
    void ShowMessage(const QString& text);
    void ShowFailure(const QString& text);
    void SetPercent(int percent);
    void SetCount(int done, int total);
    // Offers "Open" for folder.
    void SetFolder(const QString& folder);
    QString GetText() const;
    QString GetProgress() const;
    QPushButton* GetOpenButton() const { return openButton; }

private:
    QLabel* icon = nullptr;
    QLabel* text = nullptr;
    QLabel* progress = nullptr;
    QPushButton* openButton = nullptr;
    QString folder;
};

} // namespace rviz_plugin

#endif

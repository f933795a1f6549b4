#ifndef RVIZ_PLUGIN_TIPS_CENTER_WIDGET_H
#define RVIZ_PLUGIN_TIPS_CENTER_WIDGET_H

#include <QTimer>
#include <QWidget>

class QLabel;

namespace rviz_plugin {

// A message over the middle of the main window: progress stays until replaced, a final word goes after a
// few seconds.
class TipsCenterWidget : public QWidget {
    Q_OBJECT

public:
    static constexpr int finalMessageTime = 4000;

    explicit TipsCenterWidget(QWidget* parent = nullptr);
    void ShowProgress(const QString& text);
    void ShowFinal(const QString& text);
    QString GetText() const;

private:
    void ShowText(const QString& text);

    QLabel* label = nullptr;
    QTimer hideTimer;
};

} // namespace rviz_plugin

#endif

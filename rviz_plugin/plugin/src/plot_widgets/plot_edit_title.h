#ifndef RVIZ_PLUGIN_PLOT_EDIT_TITLE_H
#define RVIZ_PLUGIN_PLOT_EDIT_TITLE_H

#include <QWidget>

class QLabel;
class QPushButton;

namespace rviz_plugin {

class PlotEditLabel;

// The plot panel's title bar: an icon, the panel's name, the templates button and the close button.
class PlotEditTitle : public QWidget {
    Q_OBJECT
public:
    PlotEditTitle(const QString& title, QWidget* parent = nullptr);

    void SetTemplateButtonChecked(bool checked);
    QPushButton* GetTemplateButton() const { return templateButton; }
    QString GetTitle() const;

Q_SIGNALS:
    void SignalCloseButtonClicked();
    // checked, and the x of the button's bottom left corner in global coordinates.
    void SignalTemplateButtonClicked(bool checked, int x);

private:
    QLabel* iconLabel = nullptr;
    PlotEditLabel* titleEditLabel = nullptr;
    QPushButton* templateButton = nullptr;
    QPushButton* closeButton = nullptr;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_PLOT_COMBO_BOX_H
#define RVIZ_PLUGIN_PLOT_COMBO_BOX_H

#include <QStringList>
#include <QWidget>

class QLabel;

namespace rviz_plugin {

class PlotItemView;

// A labelled choice whose list drops under it; a click anywhere else closes the list.
class PlotComboBox : public QWidget {
    Q_OBJECT
public:
    PlotComboBox(const QString& label, QWidget* parent = nullptr);
    ~PlotComboBox() override;

    void InitUi(const QStringList& texts);
    // Sets the text and emits SignalTextChanged when it changed.
    void SetCurrentText(const QString& text);
    QString GetCurrentText() const;
    void ShowItemView();
    void HideItemView();
    bool IsItemViewVisible() const;
    void SetStyleSheet(bool focused);

Q_SIGNALS:
    void SignalTextChanged(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* mainWidget = nullptr;
    QLabel* textLabel = nullptr;
    PlotItemView* itemView = nullptr;
    QStringList texts;
};

} // namespace rviz_plugin

#endif

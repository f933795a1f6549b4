#ifndef RVIZ_PLUGIN_PLOT_SETTINGS_ITEM_H
#define RVIZ_PLUGIN_PLOT_SETTINGS_ITEM_H

#include <QStringList>
#include <QWidget>

namespace rviz_plugin {

class PlotWarnEdit;

// A row of "Template Settings": the template's name to edit, and its delete button.
class PlotSettingsItem : public QWidget {
    Q_OBJECT
public:
    PlotSettingsItem(const QString& name, QWidget* parent = nullptr);

    const QString& GetOriginalName() const { return originalName; }
    QString GetName() const;
    void SetVerifyNames(const QStringList& names);
    bool HasWarning() const;
    PlotWarnEdit* GetEdit() const { return edit; }

Q_SIGNALS:
    void SignalDeleteClicked(PlotSettingsItem* item);
    void SignalTextChanged();
    void SignalWarningStatusChanged(bool warning);

private:
    QString originalName;
    PlotWarnEdit* edit = nullptr;
};

} // namespace rviz_plugin

#endif

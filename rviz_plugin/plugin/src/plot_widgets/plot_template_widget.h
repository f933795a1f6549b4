#ifndef RVIZ_PLUGIN_PLOT_TEMPLATE_WIDGET_H
#define RVIZ_PLUGIN_PLOT_TEMPLATE_WIDGET_H

#include "plot_data/plot_canvas_data.h"

#include <QMap>
#include <QVector>
#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace rviz_plugin {

class PlotSaveAsTemplateDialog;
class PlotTemplateItem;
class PlotTemplateSettingsDialog;

// The list of layouts that drops from the panel's title: "default", the user's templates (eight at
// most), "Save as Template" and "Template Settings".
class PlotTemplateWidget : public QWidget {
    Q_OBJECT
public:
    static constexpr int maxTemplateCount = 8;
    using CurrentTemplate = std::function<PlotTemplateData()>;

    explicit PlotTemplateWidget(CurrentTemplate current, QWidget* parent = nullptr);
    ~PlotTemplateWidget() override;

    void InitTemplateWidget();
    // The user's templates, in order ("default" is not among them).
    QVector<PlotTemplateItem*> GetTemplateItems() const { return templateItems; }
    // Adds a template read from a saved panel; nothing happens at eight.
    void AddTemplateItem(const PlotTemplateData& data);
    void InitDefaultTemplateItem();
    PlotTemplateItem* GetDefaultItem() const { return defaultItem; }
    PlotTemplateItem* GetSaveAsItem() const { return saveAsItem; }
    PlotTemplateItem* GetSettingsItem() const { return settingsItem; }
    PlotSaveAsTemplateDialog* GetSaveAsDialog() const { return saveAsDialog; }
    PlotTemplateSettingsDialog* GetSettingsDialog() const { return settingsDialog; }

Q_SIGNALS:
    void SignalPlotTemplateClosed();
    void SignalApplyTemplate(const PlotTemplateData& data);
    void SignalConfigChanged();

public Q_SLOTS:
    void SlotTemplateItemClicked(PlotTemplateItem* item);
    void SlotSaveAsItemClicked();
    void SlotSaveAsSaveButtonClicked(const QString& name);
    void SlotSettingsItemClicked();
    void SlotSettingsSaveButtonClicked(const QMap<QString, QString>& renamed);
    void SlotDeleteButtonClicked(const QString& name);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    PlotTemplateItem* NewTemplateItem(const PlotTemplateData& data);
    void UpdateActions();
    QStringList Names() const;

    CurrentTemplate currentTemplate;
    QVBoxLayout* listLayout = nullptr;
    PlotTemplateItem* defaultItem = nullptr;
    QVector<PlotTemplateItem*> templateItems;
    PlotTemplateItem* saveAsItem = nullptr;
    PlotTemplateItem* settingsItem = nullptr;
    PlotSaveAsTemplateDialog* saveAsDialog = nullptr;
    PlotTemplateSettingsDialog* settingsDialog = nullptr;
};

} // namespace rviz_plugin

#endif

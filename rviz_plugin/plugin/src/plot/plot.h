#ifndef RVIZ_PLUGIN_PLOT_H
#define RVIZ_PLUGIN_PLOT_H

#include "plot_template.h"

#include "plot_data/plot_canvas_data.h"
#include "plot_data/plot_model.h"
#include "plot_data/plot_subscriber.h"

#ifndef Q_MOC_RUN
#include <rviz/panel.h>
#endif

#include <QPointer>
#include <QTimer>
#include <QWheelEvent>
#include <QVector>

#include <memory>

class QSplitter;

namespace rviz_plugin {

class PlotEditTitle;
class PlotTemplateWidget;
class PlotWidget;

// The plot panel: a tree of splitters whose leaves are plots, eight at most, and the templates that
// lay them out.
class Plot : public rviz::Panel {
    Q_OBJECT
public:
    static constexpr int maxPlotCount = 8;
    static constexpr int updateInterval = 500;

    explicit Plot(QWidget* parent = nullptr);
    ~Plot() override;

    void onInitialize() override;
    void save(rviz::Config config) const override;
    void load(const rviz::Config& config) override;

    PlotWidget* CreatePlotWidget(QSplitter* parent);
    void ClonePlotWidget(PlotWidget* source);
    void RemovePlotWidget(QSplitter* splitter);
    void RemoveAllPlotWidgets();
    QString GetPlotName() const;
    void SetTitleVerifyName();
    void CheckPlotWidgetsSize();
    void SetRemoveItemDisabled();
    void MaximizePlot(PlotWidget* widget, bool maximize);
    PlotTemplateData GetCurrentPlotTemplate() const;
    void SetCurrentPlotTemplate(const PlotTemplateData& data);
    void LoadPlotConfigData(const PlotConfigData& data);
    PlotConfigData GetPlotConfigData() const;

    QSplitter* GetRootSplitter() const { return splitter; }
    const QVector<PlotWidget*>& GetPlotWidgets() const { return plotWidgets; }
    PlotModel& GetPlotModel() { return plotModel; }
    PlotTemplateWidget* GetTemplateWidget() const { return templateWidget; }
    PlotEditTitle* GetEditTitle() const { return editTitle; }

public Q_SLOTS:
    void SlotSplit(Qt::Orientation orientation);
    void SlotRemovePlot();
    void SlotMaximize(bool isMax);
    void SlotVisibilityChanged(bool visible);
    void SlotUpdateData();
    void SlotRestoreBtnClicked();
    void SlotSaveXRange(const PlotSetting& setting);
    void SlotSetSliderMoved(bool moved, bool isMsgPath);
    void SlotHideTimeLine();
    void SlotTimeLineMoved(double x);
    void SlotRescale(QWheelEvent* event);
    void SlotSliderMinValueChanged(double value);
    void SlotSliderMaxValueChanged(double value);
    void SlotConfigChanged();

private:
    void InitSubscriber();
    void InitPlot();
    void InitDockWidget();
    void InitTemplateWidget();
    // The other plots in time mode, for the actions they share with sender.
    QVector<PlotWidget*> OtherTimePlots(QObject* sender) const;

    int maxPlots = maxPlotCount;
    QTimer updateTimer;
    PlotModel plotModel;
    std::unique_ptr<PlotSubscriber> subscriber;
    bool isHidden = false;
    bool isMaximized = false;
    QVector<PlotWidget*> plotWidgets;
    QVector<QPointer<QWidget>> retiredWidgets;
    QSplitter* splitter = nullptr;
    PlotTemplate plotTemplate;
    PlotTemplateWidget* templateWidget = nullptr;
    PlotEditTitle* editTitle = nullptr;
    // A layout read before the panel was set up.
    std::unique_ptr<PlotConfigData> pendingConfig;
    bool initialized = false;
};

} // namespace rviz_plugin

#endif

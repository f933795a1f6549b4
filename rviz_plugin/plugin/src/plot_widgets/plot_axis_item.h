#ifndef RVIZ_PLUGIN_PLOT_AXIS_ITEM_H
#define RVIZ_PLUGIN_PLOT_AXIS_ITEM_H

#include "plot_data/curve_sampler.h"
#include "plot_data/plot_canvas_data.h"

#include <QColor>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;

namespace rviz_plugin {

class PlotColorWidget;
class PlotEditLabel;
class PlotItemView;
class PlotModel;
class PlotRecord;

// One line of the axis pane: its field (with the element of an array), its colour, and the sampler
// that makes its points.
class PlotAxisItem : public QWidget {
    Q_OBJECT
public:
    static constexpr int itemHeight = 24;
    static constexpr int frequencyInterval = 1200;
    static constexpr int arrayItemsDelay = 1000;

    PlotAxisItem(PlotRecord& record, const PlotModel& model, const QString& field, const QColor& color,
                 QWidget* parent = nullptr);
    ~PlotAxisItem() override;

    void SetCurveIndex(int index);
    int GetCurveIndex() const { return sampler.GetCurveIndex(); }
    void SetColorSlot(int slot) { colorSlot = slot; }
    int GetColorSlot() const { return colorSlot; }
    void SetCurveColor(const QColor& color);
    QColor GetCurveColor() const { return color; }
    void SetEditFocus();
    void SetYFieldName(const QString& field);
    void SetXFieldName(const QString& field);
    void SetIsMsgPath(bool isMsgPath);
    // Changes what x is; a line with a field starts again (its old points meant another x).
    void SwitchXAxis(bool isMsgPath, bool isRestore);
    bool HasNewPoint() const { return sampler.HasNewPoint(); }
    // A field typed or picked (path, with the element when restoring); false when it is unknown.
    bool SetSelectField(const QString& path, bool isRestore);
    void SetCurveInfoFromCfg(const AxisData& axis, const AxisLineData& line);
    void UpdateCurve(const QString& field, const QString& type);
    void StartUpdateCurve();
    void StopUpdateCurve();
    void ResetCurve();
    void ShowItemView(bool show);
    void ShowExternItemView(bool show);
    void ShowArrayItems();
    bool IsItemViewVisible() const;
    // The line as it is saved.
    const AxisLineData& GetLineData() const { return lineData; }
    bool IsWarningShown() const;
    PlotEditLabel* GetEditLabel() const { return editLabel; }
    PlotEditLabel* GetExternEdit() const { return externEdit; }
    PlotItemView* GetItemView() const { return itemView; }
    PlotItemView* GetExternView() const { return externView; }
    CurveSampler& GetSampler() { return sampler; }

Q_SIGNALS:
    void SignalColorChanged(int index, const QColor& color);
    void SignalRemoveItem(PlotAxisItem* item);
    void SignalUpdateCurve(int index, const QVector<QPointF>& points, const QVector<double>& timestamps);
    void SignalLoopBegin(int index);
    void SignalStartDrawCurve(int index, const QString& name);
    void SignalClearCurveData(int index);
    void SignalLineChanged();

public Q_SLOTS:
    void SlotEditFinished(const QString& text);
    void SlotEditFinishedExtern(const QString& text);
    void SlotCheckFrequency();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowWarningLabel(bool show);
    // Subscribes the record to the line's field, and x's with a field on x.
    void Subscribe(const QString& yKey);
    void PlaceView(PlotItemView* view, QWidget* under);

    PlotRecord& record;
    const PlotModel& model;
    CurveSampler sampler;
    AxisLineData lineData;
    QColor color;
    int colorSlot = 0;
    bool isMsgPath = false;
    QString xField;
    bool waitingForArray = false;
    PlotEditLabel* editLabel = nullptr;
    PlotEditLabel* externEdit = nullptr;
    QLabel* colorLabel = nullptr;
    QPointer<PlotColorWidget> colorWidget;
    QPushButton* removeBtn = nullptr;
    QLabel* warningLabel = nullptr;
    PlotItemView* itemView = nullptr;
    PlotItemView* externView = nullptr;
    QTimer freqTimer;
};

} // namespace rviz_plugin

#endif

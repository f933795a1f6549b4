#ifndef RVIZ_PLUGIN_PLOT_AXIS_WIDGET_H
#define RVIZ_PLUGIN_PLOT_AXIS_WIDGET_H

#include "plot_data/plot_canvas_data.h"
#include "plot_data/plot_record.h"

#include <QColor>
#include <QPointF>
#include <QStringList>
#include <QTimer>
#include <QVector>
#include <QWidget>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace rviz_plugin {

class PlotAxisItem;
class PlotComboBox;
class PlotEditLabel;
class PlotItemView;
class PlotModel;

// The pane beside the curves: the x axis (time stamps or a field) and up to five lines.
class PlotAxisWidget : public QWidget {
    Q_OBJECT
public:
    static constexpr int timestampWidth = 306;
    static constexpr int msgPathWidth = 386;
    static constexpr int elementWidth = 404;
    static constexpr int arrayXWidth = 500;
    static constexpr int baseHeight = 110;
    static constexpr int lineStep = 25;
    static constexpr int maxLines = 5;
    static constexpr int selectDelay = 1500;
    static const QStringList lineColors;

    explicit PlotAxisWidget(const PlotModel& model, QWidget* parent = nullptr);
    ~PlotAxisWidget() override;

    void InitUi();
    void SetAxisData(const AxisData& data);
    void UpdateAxisWidget();
    const AxisData& GetAxisData() const { return axisData; }
    // The curve index of the first line with a new point, or -1.
    int GetUpdateIndex() const;
    void ShowWarning(bool show);
    void AdjustWidth();
    void OnPlotVisibleChanged(bool visible);
    // After the curve at index went: the lines above it move down by one.
    void UpdateItemsIndex(int removed);
    const QVector<PlotAxisItem*>& GetItems() const { return items; }
    bool IsMsgPath() const { return axisData.isMsgPath; }
    bool IsWarningShown() const;
    PlotComboBox* GetComboBox() const { return comboBox; }
    PlotEditLabel* GetXEdit() const { return xEdit; }
    QPushButton* GetAddLineButton() const { return addLineBtn; }
    PlotRecord& GetRecord() { return record; }
    void HideItemViews();

Q_SIGNALS:
    void SignalColorChanged(int index, const QColor& color);
    void SignalAddLine(const QString& color);
    void SignalRemoveItem(int index);
    void SignalUpdateCurve(int index, const QVector<QPointF>& points, const QVector<double>& timestamps);
    void SignalStartDrawCurve(int index, const QString& name);
    void SignalAxisDataChanged(const AxisData& data);
    void SignalResetPlotUi();
    void SignalClearCurveData(int index);
    void SignalLoopBegin(int index);

public Q_SLOTS:
    void SlotAddLine();
    void SlotRemoveItem(PlotAxisItem* item);
    void SlotComboBoxTextChanged(const QString& text);
    void SlotEditFinished(const QString& text);
    void SlotEditFinishedExtern(const QString& text);
    void SlotCheckFrequency();

private:
    PlotAxisItem* CreateAxisItem(const QString& field, const QColor& color);
    void UpdateAddLineBtnStatus();
    void SetItemsXField(const QString& field);
    void UpdateRecord();
    void UpdateLines();
    void UpdateHeight();

    const PlotModel& model;
    PlotComboBox* comboBox = nullptr;
    PlotEditLabel* xEdit = nullptr;
    PlotEditLabel* xExternEdit = nullptr;
    PlotItemView* xItemView = nullptr;
    PlotItemView* xExternView = nullptr;
    QLabel* warningLabel = nullptr;
    QPushButton* addLineBtn = nullptr;
    QVBoxLayout* itemsLayout = nullptr;
    QVector<PlotAxisItem*> items;
    PlotRecord record;
    PlotRecord xRecord;
    QTimer freqTimer;
    AxisData axisData;
    bool isXArray = false;
};

} // namespace rviz_plugin

#endif

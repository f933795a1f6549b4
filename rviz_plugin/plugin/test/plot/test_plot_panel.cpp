// The plot panel inside a real rviz frame (ROS master, virtual display), fed by a vehicle status
// publisher of this process: the splitter tree, the canvas's ranges, the axis pane, the settings
// dialog, templates, and saving and loading.
#include "../support/qt_events.h"
#include "../support/qt_print.h"
#include "../support/rviz_frame_main.h"
#include "plot/plot.h"
#include "plot_data/plot_config.h"
#include "plot_widgets/plot_axis_item.h"
#include "plot_widgets/plot_axis_widget.h"
#include "plot_widgets/plot_combo_box.h"
#include "plot_widgets/plot_curve.h"
#include "plot_widgets/plot_double_slider.h"
#include "plot_widgets/plot_edit_label.h"
#include "plot_widgets/plot_item_view.h"
#include "plot_widgets/plot_more_widget.h"
#include "plot_widgets/plot_save_as_template_dialog.h"
#include "plot_widgets/plot_setting_dialog.h"
#include "plot_widgets/plot_spin_box.h"
#include "plot_widgets/plot_template_item.h"
#include "plot_widgets/plot_template_widget.h"
#include "plot_widgets/plot_time_line.h"
#include "plot_widgets/plot_warn_edit.h"
#include "plot_widgets/plot_widget.h"

#include <custom/VehicleStatus.h>

#include <gtest/gtest.h>

#include <qwt_plot.h>
#include <qwt_scale_div.h>
#include <ros/ros.h>
#include <rviz/panel_dock_widget.h>
#include <rviz/visualization_frame.h>
#include <rviz/visualization_manager.h>
#include <rviz/window_manager_interface.h>
#include <rviz/yaml_config_writer.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QPushButton>
#include <QSplitter>

#include <cmath>
#include <functional>
#include <limits>

namespace {

using namespace std::chrono_literals;
using namespace rviz_plugin;

rviz::VisualizationFrame* frame = nullptr;

bool Serve(const std::function<bool()>& predicate, std::chrono::milliseconds timeout = 20s)
{
    return test_support::ServeRosEvents(predicate, timeout);
}

void Pause(std::chrono::milliseconds time)
{
    Serve([]() { return false; }, time);
}

// Every splitter of the tree holds one or two children, and no splitter is empty.
void ExpectBinaryTree(const QSplitter* splitter)
{
    EXPECT_GE(splitter->count(), 1);
    EXPECT_LE(splitter->count(), 2);
    for (int i = 0; i < splitter->count(); ++i) {
        if (const auto* inner = qobject_cast<const QSplitter*>(splitter->widget(i))) {
            ExpectBinaryTree(inner);
        }
    }
}

void Key(QWidget* target, int key, const QString& text = QString())
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(target, &press);
}

class PlotPanel : public testing::Test {
protected:
    void SetUp() override
    {
        vehicle = node.advertise<custom::VehicleStatus>("/TopicVehicleInfo", 10);
        plot = new Plot();
        dock = frame->getManager()->getWindowManager()->addPane("Plot", plot, Qt::LeftDockWidgetArea);
        plot->initialize(frame->getManager());
        dock->resize(900, 800);
    }
    void TearDown() override
    {
        delete dock;
        Pause(100ms);
    }
    // Publishes the vehicle status at about 50 Hz while events are served; speed grows with the stamp.
    bool ServeWhilePublishing(const std::function<bool()>& predicate, std::chrono::milliseconds timeout = 20s)
    {
        auto last = std::chrono::steady_clock::now() - 1s;
        return Serve(
            [&]() {
                if (std::chrono::steady_clock::now() - last > 20ms) {
                    custom::VehicleStatus status;
                    status.header.stamp = ros::Time(1000.0 + sent * 0.02);
                    status.vehicleSpeed = 10.0 + sent;
                    status.brake = 0.5;
                    vehicle.publish(status);
                    ++sent;
                    last = std::chrono::steady_clock::now();
                }
                return predicate();
            },
            timeout);
    }
    PlotWidget* Widget(const QString& title) const
    {
        for (PlotWidget* widget : plot->GetPlotWidgets()) {
            if (widget->GetPlotName() == title) {
                return widget;
            }
        }
        return nullptr;
    }

    ros::NodeHandle node;
    ros::Publisher vehicle;
    int sent = 0;
    Plot* plot = nullptr;
    rviz::PanelDockWidget* dock = nullptr;
};

} // namespace

TEST_F(PlotPanel, TheDefaultTemplatePlotsTheVehicleLive)
{
    ASSERT_EQ(plot->GetPlotWidgets().size(), 4);
    for (const char* title : {"Speed", "Acceleration", "Brake", "Throttle"}) {
        ASSERT_NE(Widget(title), nullptr) << title;
    }
    EXPECT_EQ(plot->GetRootSplitter()->orientation(), Qt::Horizontal);
    ExpectBinaryTree(plot->GetRootSplitter());
    PlotWidget* speed = Widget("Speed");
    ASSERT_EQ(speed->GetCurves().size(), 1);
    // The lines select their fields once the definitions can have come (1.5 s), then send once a second.
    ASSERT_TRUE(ServeWhilePublishing([&]() { return speed->GetCurves()[0]->Series().size() >= 10; }, 30s));
    const PlotSeries& series = speed->GetCurves()[0]->Series();
    const QPointF last = series.Point(series.size() - 1);
    // x is the message's stamp, y its speed.
    EXPECT_NEAR(last.y() - 10.0, (last.x() - 1000.0) / 0.02, 1e-6);
    speed->ReplotIfChanged();
    const QwtScaleDiv& x = speed->GetPlot()->axisScaleDiv(QwtPlot::xBottom);
    const QwtScaleDiv& y = speed->GetPlot()->axisScaleDiv(QwtPlot::yLeft);
    EXPECT_LE(x.lowerBound(), series.Point(0).x());
    EXPECT_GE(y.upperBound(), series.BoundingRect().bottom());
    // The brake is constant: the y range opens by the margin on both sides.
    PlotWidget* brake = Widget("Brake");
    ASSERT_TRUE(ServeWhilePublishing([&]() { return !brake->GetCurves()[0]->Series().empty(); }, 10s));
    ASSERT_TRUE(Serve([&]() { return brake->GetPlot()->axisScaleDiv(QwtPlot::yLeft).lowerBound() == -0.5; }, 5s));
    EXPECT_EQ(brake->GetPlot()->axisScaleDiv(QwtPlot::yLeft).upperBound(), 1.5);

    // Hidden, the panel subscribes to nothing and its plots lose their samples; shown, they start again.
    plot->SlotVisibilityChanged(false);
    EXPECT_TRUE(speed->GetCurves()[0]->Series().empty());
    EXPECT_TRUE(Serve([&]() { return vehicle.getNumSubscribers() == 0; }, 10s));
    plot->SlotVisibilityChanged(true);
    EXPECT_TRUE(ServeWhilePublishing([&]() { return !speed->GetCurves()[0]->Series().empty(); }, 10s));
}

TEST_F(PlotPanel, SplitsNestUpToEightAndTheLastPlotStays)
{
    PlotWidget* first = plot->GetPlotWidgets().front();
    while (plot->GetPlotWidgets().size() < 8) {
        PlotWidget* last = plot->GetPlotWidgets().back();
        QPushButton* split = last->GetMoreWidget()->GetItem(plot->GetPlotWidgets().size() % 2 ? "Split Vertical"
                                                                                                : "Split Horizontal");
        ASSERT_TRUE(split->isEnabled());
        split->click();
    }
    ExpectBinaryTree(plot->GetRootSplitter());
    for (PlotWidget* widget : plot->GetPlotWidgets()) {
        EXPECT_FALSE(widget->GetMoreWidget()->GetItem("Split Horizontal")->isEnabled());
        EXPECT_FALSE(widget->GetMoreWidget()->GetItem("Split Vertical")->isEnabled());
    }
    // A clone takes the source's lines and the lowest free name.
    EXPECT_EQ(plot->GetPlotWidgets()[4]->GetPlotName(), "Plot1");
    EXPECT_EQ(plot->GetPlotWidgets()[4]->GetCanvasData().axisData.axisLineList.size(), 1);
    // The saved tree is the live tree: eight plots.
    EXPECT_EQ(plot->GetCurrentPlotTemplate().root->Plots().size(), 8U);

    // Names "Plot", "Plot1", "Plot3" in use: the next is "Plot2".
    plot->GetPlotWidgets()[5]->SetPlotName("Plot3");
    plot->GetPlotWidgets()[6]->SetPlotName("Plot");
    plot->GetPlotWidgets()[7]->SetPlotName("Other");
    EXPECT_EQ(plot->GetPlotName(), "Plot2");

    while (plot->GetPlotWidgets().size() > 1) {
        PlotWidget* last = plot->GetPlotWidgets().back();
        QPushButton* remove = last->GetMoreWidget()->GetItem("Remove Plot");
        ASSERT_TRUE(remove->isEnabled());
        remove->click();
        Pause(20ms);
        ExpectBinaryTree(plot->GetRootSplitter());
    }
    EXPECT_EQ(plot->GetPlotWidgets().front(), first);
    EXPECT_FALSE(first->GetMoreWidget()->GetItem("Remove Plot")->isEnabled());
    EXPECT_TRUE(first->GetMoreWidget()->GetItem("Split Vertical")->isEnabled());
}

TEST_F(PlotPanel, MaximisingHidesTheOthersAndComesBackSaved)
{
    PlotWidget* brake = Widget("Brake");
    brake->GetMoreWidget()->GetItem("Maximize")->click();
    EXPECT_EQ(brake->GetMoreWidget()->GetItem("Maximize"), nullptr);
    EXPECT_FALSE(brake->GetMoreWidget()->GetItem("Restore Window Size")->isHidden());
    EXPECT_FALSE(brake->GetMoreWidget()->GetItem("Split Vertical")->isEnabled());
    EXPECT_TRUE(Widget("Speed")->isHidden());
    EXPECT_FALSE(brake->isHidden());

    rviz::Config config;
    plot->save(config);
    auto* copy = new Plot();
    rviz::PanelDockWidget* copyDock = frame->getManager()->getWindowManager()->addPane("Plot copy", copy,
                                                                                        Qt::LeftDockWidgetArea);
    copy->initialize(frame->getManager());
    copy->load(config);
    ASSERT_EQ(copy->GetPlotWidgets().size(), 4);
    for (PlotWidget* widget : copy->GetPlotWidgets()) {
        EXPECT_EQ(widget->IsMaximize(), widget->GetPlotName() == "Brake") << widget->GetPlotName().toStdString();
        EXPECT_EQ(widget->isHidden(), widget->GetPlotName() != "Brake") << widget->GetPlotName().toStdString();
    }
    delete copyDock;

    brake->GetMoreWidget()->GetItem("Restore Window Size")->click();
    EXPECT_FALSE(Widget("Speed")->isHidden());
}

TEST_F(PlotPanel, CanvasRangesSliderZoomHistoryAndLoops)
{
    PlotWidget* widget = Widget("Throttle");
    QwtPlot* canvas = widget->GetPlot();
    Pause(200ms);  // laid out
    // One point: a dot, and an x range of ten from it.
    widget->SlotUpdateCurve(0, {QPointF(50.0, 2.0)}, {50.0});
    widget->ReplotIfChanged();
    EXPECT_NE(widget->GetCurves()[0]->symbol(), nullptr);
    EXPECT_EQ(canvas->axisScaleDiv(QwtPlot::xBottom).lowerBound(), 50.0);
    EXPECT_EQ(canvas->axisScaleDiv(QwtPlot::xBottom).upperBound(), 60.0);
    EXPECT_EQ(canvas->axisScaleDiv(QwtPlot::yLeft).lowerBound(), 1.0);
    EXPECT_EQ(canvas->axisScaleDiv(QwtPlot::yLeft).upperBound(), 3.0);

    // Numbers that are not finite are kept but neither drawn nor counted in the ranges.
    widget->SlotUpdateCurve(0,
                            {QPointF(51.0, std::numeric_limits<double>::infinity()),
                             QPointF(52.0, std::numeric_limits<double>::quiet_NaN()), QPointF(53.0, 4.0)},
                            {51.0, 52.0, 53.0});
    widget->ReplotIfChanged();
    EXPECT_EQ(widget->GetCurves()[0]->symbol(), nullptr);
    EXPECT_EQ(canvas->axisScaleDiv(QwtPlot::yLeft).upperBound(), 5.0);
    EXPECT_EQ(canvas->axisScaleDiv(QwtPlot::xBottom).upperBound(), 53.0);

    // More than an hour: the oldest go.
    QVector<QPointF> points;
    QVector<double> times;
    for (int i = 0; i < 5000; ++i) {
        points.push_back(QPointF(100.0 + i, i % 10));
        times.push_back(100.0 + i);
    }
    widget->SlotUpdateCurve(0, points, times);
    const PlotSeries& series = widget->GetCurves()[0]->Series();
    EXPECT_LE(series.Time(series.size() - 1) - series.Time(0), 3600.0001);
    EXPECT_EQ(series.Point(0).x(), 1499.0);

    // A moved slider handle holds the x axis against new data, until the restore button.
    widget->ReplotIfChanged();
    PlotDoubleSlider* slider = widget->GetSlider();
    const QRect area = slider->rect();
    // The left handle dragged to a quarter.
    const QPointF handle(PlotDoubleSlider::handleWidth / 2.0, area.height() / 2.0);
    const QPointF quarter(area.width() * 0.25, area.height() / 2.0);
    QMouseEvent press(QEvent::MouseButtonPress, handle, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(slider, &press);
    QMouseEvent drag(QEvent::MouseMove, quarter, Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(slider, &drag);
    QMouseEvent release(QEvent::MouseButtonRelease, quarter, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(slider, &release);
    EXPECT_TRUE(widget->IsSliderMoved());
    EXPECT_FALSE(widget->GetRestoreButton()->isHidden());
    const double heldMin = canvas->axisScaleDiv(QwtPlot::xBottom).lowerBound();
    EXPECT_GT(heldMin, 1499.0);
    widget->SlotUpdateCurve(0, {QPointF(6000.0, 1.0)}, {6000.0});
    widget->ReplotIfChanged();
    EXPECT_EQ(canvas->axisScaleDiv(QwtPlot::xBottom).lowerBound(), heldMin);
    widget->GetRestoreButton()->click();
    EXPECT_FALSE(widget->IsSliderMoved());
    EXPECT_TRUE(widget->GetRestoreButton()->isHidden());
    EXPECT_EQ(canvas->axisScaleDiv(QwtPlot::xBottom).upperBound(), 6000.0);

    // A new pass keeps the previous one as the bak curve, once.
    widget->SlotLoopBegin(0);
    widget->SlotUpdateCurve(0, {QPointF(10.0, 1.0), QPointF(11.0, 2.0)}, {10.0, 11.0});
    widget->SlotLoopBegin(0);
    ASSERT_EQ(widget->GetBakCurves().size(), 1);
    EXPECT_EQ(widget->GetBakCurves()[0]->Series().size(), 2U);
    EXPECT_TRUE(widget->GetCurves()[0]->Series().empty());
    widget->SlotClearCurveData(0);
    EXPECT_TRUE(widget->GetBakCurves().isEmpty());
    // An index that is no line changes nothing.
    widget->SlotUpdateCurve(7, {QPointF(1.0, 1.0)}, {1.0});
    widget->SlotRemoveItem(-1);
    EXPECT_EQ(widget->GetCurves().size(), 1);
}

TEST_F(PlotPanel, TimeLinesFollowTheCursorOnEveryTimePlot)
{
    PlotWidget* speed = Widget("Speed");
    PlotWidget* brake = Widget("Brake");
    PlotWidget* throttle = Widget("Throttle");
    // The throttle plot against a field: it keeps to itself.
    AxisData axis = throttle->GetCanvasData().axisData;
    axis.isMsgPath = true;
    throttle->SlotAxisDataChanged(axis);
    ASSERT_TRUE(throttle->IsMsgPath());
    Pause(50ms);
    QWidget* canvas = speed->GetPlot()->canvas();
    QMouseEvent move(QEvent::MouseMove, QPointF(canvas->width() / 2.0, canvas->height() / 2.0), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(canvas, &move);
    EXPECT_TRUE(speed->GetTimeLine()->isVisible());
    ASSERT_TRUE(brake->GetTimeLine()->isVisible());
    EXPECT_EQ(brake->GetTimeLine()->Series().Point(0).x(), speed->GetTimeLine()->Series().Point(0).x());
    EXPECT_FALSE(throttle->GetTimeLine()->isVisible());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(canvas, &leave);
    EXPECT_FALSE(speed->GetTimeLine()->isVisible());
    EXPECT_FALSE(brake->GetTimeLine()->isVisible());

    // The wheel zooms the time plots together about the cursor; the restore button brings them back.
    const QwtScaleDiv before = brake->GetPlot()->axisScaleDiv(QwtPlot::xBottom);
    const QwtScaleDiv throttleBefore = throttle->GetPlot()->axisScaleDiv(QwtPlot::xBottom);
    const QPointF middle(canvas->width() / 2.0, canvas->height() / 2.0);
    QWheelEvent wheel(middle, canvas->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(canvas, &wheel);
    EXPECT_TRUE(speed->IsRescaled());
    EXPECT_TRUE(brake->IsRescaled());
    EXPECT_FALSE(throttle->IsRescaled());
    const QwtScaleDiv zoomed = brake->GetPlot()->axisScaleDiv(QwtPlot::xBottom);
    EXPECT_NEAR(zoomed.range(), before.range() * 0.9, before.range() * 0.02);
    EXPECT_EQ(throttle->GetPlot()->axisScaleDiv(QwtPlot::xBottom).range(), throttleBefore.range());
    EXPECT_FALSE(speed->GetRestoreButton()->isHidden());
    EXPECT_EQ(speed->GetCanvasData().magnifierData.delta, 120);
    speed->GetRestoreButton()->click();
    EXPECT_FALSE(brake->IsRescaled());
    EXPECT_EQ(brake->GetPlot()->axisScaleDiv(QwtPlot::xBottom).range(), before.range());
}

TEST_F(PlotPanel, AxisPaneLinesColoursAndFields)
{
    PlotWidget* widget = Widget("Speed");
    PlotAxisWidget* pane = widget->GetAxisWidget();
    // The definitions of the topics arrive through the panel's own subscription.
    ASSERT_TRUE(ServeWhilePublishing([&]() { return plot->GetPlotModel().HasField("/TopicVehicleInfo/brake"); }));
    while (pane->GetItems().size() < PlotAxisWidget::maxLines) {
        ASSERT_TRUE(pane->GetAddLineButton()->isEnabled());
        pane->GetAddLineButton()->click();
    }
    EXPECT_FALSE(pane->GetAddLineButton()->isEnabled());
    EXPECT_EQ(widget->GetCurves().size(), 5);
    // Removing the second of three and adding gives the second colour again.
    while (pane->GetItems().size() > 3) {
        pane->SlotRemoveItem(pane->GetItems().back());
    }
    const int heightWithThree = pane->height();
    pane->SlotRemoveItem(pane->GetItems()[1]);
    EXPECT_EQ(pane->height(), heightWithThree - (PlotAxisItem::itemHeight + PlotAxisWidget::lineStep));
    pane->GetAddLineButton()->click();
    EXPECT_EQ(pane->height(), heightWithThree);
    ASSERT_EQ(pane->GetItems().size(), 3);
    EXPECT_EQ(pane->GetItems().back()->GetCurveColor(), QColor("#009DA5"));
    EXPECT_EQ(widget->GetCurves().size(), 3);
    for (int i = 0; i < pane->GetItems().size(); ++i) {
        EXPECT_EQ(pane->GetItems()[i]->GetCurveIndex(), i);
    }

    // An unknown field turns the edit red and keeps the line as it was.
    PlotAxisItem* item = pane->GetItems().back();
    EXPECT_FALSE(item->SetSelectField("/TopicVehicleInfo/nothing", false));
    EXPECT_TRUE(item->GetEditLabel()->HasWarning());
    EXPECT_TRUE(item->SetSelectField("/TopicVehicleInfo/brake", false));
    EXPECT_FALSE(item->GetEditLabel()->HasWarning());
    EXPECT_EQ(pane->GetAxisData().axisLineList.back().yField, "/TopicVehicleInfo/brake");
    ASSERT_TRUE(ServeWhilePublishing([&]() { return !widget->GetCurves().back()->Series().empty(); }, 10s));
    EXPECT_EQ(widget->GetCurves().back()->Series().Point(0).y(), 0.5);

    // The field list: all fields, or those that contain the text; none gives its own row.
    item->ShowItemView(true);
    PlotItemView* list = item->GetItemView();
    EXPECT_EQ(list->GetVisibleTitles(), plot->GetPlotModel().GetFieldList());
    list->SlotLineEditTextChanged("BRAKE");
    EXPECT_EQ(list->GetVisibleTitles(), QStringList{"/TopicVehicleInfo/brake"});
    list->SlotLineEditTextChanged("no such field");
    EXPECT_EQ(list->GetVisibleTitles(), QStringList{"No matching field."});
    item->ShowItemView(false);

    // x against a field: an unknown field leaves the x field as it was.
    pane->GetComboBox()->SetCurrentText("msg path");
    EXPECT_TRUE(pane->IsMsgPath());
    pane->SlotEditFinished("/TopicVehicleInfo/vehicleSpeed");
    EXPECT_EQ(pane->GetAxisData().xField, "/TopicVehicleInfo/vehicleSpeed");
    pane->SlotEditFinished("/TopicVehicleInfo/unknown");
    EXPECT_TRUE(pane->GetXEdit()->HasWarning());
    EXPECT_EQ(pane->GetAxisData().xField, "/TopicVehicleInfo/vehicleSpeed");
    ASSERT_TRUE(ServeWhilePublishing([&]() {
        const PlotSeries& line = widget->GetCurves().back()->Series();
        return line.size() > 0 && line.Point(0).x() >= 10.0;
    }, 10s));
    EXPECT_TRUE(widget->GetCurves().back()->Series().HasSeparateTimes());
    // Back to time: the warning goes at once.
    pane->GetComboBox()->SetCurrentText("timestamp");
    EXPECT_FALSE(pane->IsWarningShown());
    EXPECT_TRUE(pane->GetAxisData().xField.isEmpty());

    // The last line removed: the record stops and the plot is reset.
    while (!pane->GetItems().isEmpty()) {
        pane->SlotRemoveItem(pane->GetItems().back());
    }
    EXPECT_FALSE(pane->GetRecord().HasLines());
    EXPECT_TRUE(widget->GetCurves().isEmpty());
    EXPECT_EQ(widget->GetPlot()->axisScaleDiv(QwtPlot::xBottom).upperBound(), 10.0);
}

TEST_F(PlotPanel, SettingsDialogSpinBoxesAndNames)
{
    PlotWidget* widget = Widget("Speed");
    PlotSettingDialog* dialog = widget->GetSettingDialog();
    dialog->SetSettingData(widget->GetCanvasData().setting);
    dialog->SetVerifyNames({"Brake", "Throttle"});
    PlotSpinBox* yMin = dialog->GetYMinBox();
    PlotSpinBox* yMax = dialog->GetYMaxBox();
    PlotSpinBox* xRange = dialog->GetXRangeBox();
    EXPECT_EQ(yMin->GetText(), "AUTO");
    EXPECT_TRUE(dialog->IsSaveEnabled());

    // Backspace in "AUTO" leaves the box empty and in warning; Save waits for a value.
    Key(yMin->GetEdit(), Qt::Key_Backspace);
    EXPECT_EQ(yMin->GetText(), "");
    EXPECT_TRUE(yMin->HasWarning());
    EXPECT_FALSE(dialog->IsSaveEnabled());
    Key(yMin->GetEdit(), Qt::Key_5, "5");
    EXPECT_EQ(yMin->GetText(), "5");
    EXPECT_FALSE(yMin->HasWarning());
    EXPECT_TRUE(dialog->IsSaveEnabled());

    // Equal limits warn on both.
    Key(yMax->GetEdit(), Qt::Key_5, "5");
    EXPECT_EQ(yMax->GetText(), "5");
    EXPECT_TRUE(yMin->HasWarning());
    EXPECT_TRUE(yMax->HasWarning());
    EXPECT_EQ(yMin->GetWarningText(), "The minimum value must be less than the maximum value.");
    EXPECT_EQ(yMax->GetWarningText(), "The maximum value must be greater than the minimum value.");
    EXPECT_FALSE(dialog->IsSaveEnabled());
    yMax->GetUpButton()->click();
    EXPECT_EQ(yMax->GetText(), "6");
    EXPECT_FALSE(yMin->HasWarning());
    EXPECT_TRUE(dialog->IsSaveEnabled());

    // The range box steps within 1 to 3600; a step past either end goes back to AUTO.
    xRange->GetDownButton()->click();
    EXPECT_TRUE(xRange->IsAuto());
    xRange->GetUpButton()->click();
    EXPECT_EQ(xRange->GetText(), "1");
    EXPECT_FALSE(xRange->GetDownButton()->isEnabled());
    xRange->SetValue(3600.0L);
    EXPECT_FALSE(xRange->GetUpButton()->isEnabled());
    xRange->SetValue(20.5L);
    EXPECT_EQ(xRange->GetText(), "20.5");

    // Titles of 60 characters, fewer when wide; a long paste keeps the start that fits.
    QLineEdit* title = dialog->GetTitleEdit()->GetLineEdit();
    title->setText(QString(130, 'a'));
    EXPECT_EQ(title->text().size(), 120);
    title->setText(QString(70, QChar(0x8F66)));
    EXPECT_EQ(title->text(), QString(40, QChar(0x8F66)));
    EXPECT_EQ(title->maxLength(), 40);

    // A title in use is refused.
    dialog->GetTitleEdit()->GetLineEdit()->setText("Brake");
    EXPECT_EQ(dialog->GetTitleEdit()->GetWarning(), "Duplicate name.");
    EXPECT_FALSE(dialog->IsSaveEnabled());
    dialog->GetTitleEdit()->GetLineEdit()->setText("Velocity");
    EXPECT_TRUE(dialog->IsSaveEnabled());

    const PlotSetting setting = dialog->UpdateSettingData();
    EXPECT_EQ(setting.title, "Velocity");
    EXPECT_FALSE(setting.isYMinAuto);
    EXPECT_EQ(setting.yMin, 5.0);
    EXPECT_EQ(setting.yMax, 6.0);
    EXPECT_EQ(setting.xRange, 20.5);
    widget->SlotSaveSetting(setting, false);
    EXPECT_EQ(widget->GetPlotName(), "Velocity");
    EXPECT_EQ(widget->GetPlot()->axisScaleDiv(QwtPlot::yLeft).lowerBound(), 5.0);
    EXPECT_EQ(widget->GetPlot()->axisScaleDiv(QwtPlot::yLeft).upperBound(), 6.0);
    // The time plots share the new x range.
    EXPECT_EQ(Widget("Brake")->GetCanvasData().setting.xRange, 20.5);
    EXPECT_FALSE(Widget("Brake")->GetCanvasData().setting.isXRangeAuto);
}

TEST_F(PlotPanel, TemplatesSaveRenameDeleteAndTheDefault)
{
    PlotTemplateWidget* templates = plot->GetTemplateWidget();
    PlotSaveAsTemplateDialog* saveAs = templates->GetSaveAsDialog();
    templates->SlotSaveAsItemClicked();
    EXPECT_EQ(saveAs->GetEdit()->GetLineEdit()->text(), "Template1");
    saveAs->GetEdit()->GetLineEdit()->setText("default");
    EXPECT_EQ(saveAs->GetEdit()->GetWarning(), "Duplicate name.");
    saveAs->GetEdit()->GetLineEdit()->setText("");
    EXPECT_EQ(saveAs->GetEdit()->GetWarning(), "No content.");
    saveAs->GetSaveButton()->click();
    EXPECT_TRUE(templates->GetTemplateItems().isEmpty());
    saveAs->reject();
    EXPECT_FALSE(templates->GetSettingsItem()->IsItemEnabled());

    for (int i = 0; i < PlotTemplateWidget::maxTemplateCount; ++i) {
        EXPECT_TRUE(templates->GetSaveAsItem()->IsItemEnabled());
        templates->SlotSaveAsSaveButtonClicked(QString("mine%1").arg(i));
    }
    EXPECT_FALSE(templates->GetSaveAsItem()->IsItemEnabled());
    EXPECT_TRUE(templates->GetSettingsItem()->IsItemEnabled());
    templates->SlotSaveAsSaveButtonClicked("ninth");
    EXPECT_EQ(templates->GetTemplateItems().size(), PlotTemplateWidget::maxTemplateCount);

    templates->SlotSettingsSaveButtonClicked({{"mine0", "first"}});
    EXPECT_EQ(templates->GetTemplateItems()[0]->GetText(), "first");
    templates->SlotDeleteButtonClicked("mine1");
    EXPECT_EQ(templates->GetTemplateItems().size(), PlotTemplateWidget::maxTemplateCount - 1);
    EXPECT_TRUE(templates->GetSaveAsItem()->IsItemEnabled());

    // Saved: the user's templates, never "default"; loaded: "default" is there again.
    rviz::Config config;
    plot->save(config);
    const std::string text = rviz::YamlConfigWriter().writeString(config).toStdString();
    EXPECT_EQ(text.find("templateName: default"), std::string::npos) << text;
    EXPECT_NE(text.find("templateName: first"), std::string::npos) << text;
    auto* copy = new Plot();
    rviz::PanelDockWidget* copyDock = frame->getManager()->getWindowManager()->addPane("Plot copy", copy,
                                                                                        Qt::LeftDockWidgetArea);
    copy->initialize(frame->getManager());
    copy->load(config);
    EXPECT_EQ(copy->GetTemplateWidget()->GetTemplateItems().size(), PlotTemplateWidget::maxTemplateCount - 1);
    EXPECT_EQ(copy->GetTemplateWidget()->GetDefaultItem()->GetText(), "default");
    // A template applied replaces the layout.
    copy->GetTemplateWidget()->SlotTemplateItemClicked(copy->GetTemplateWidget()->GetDefaultItem());
    EXPECT_EQ(copy->GetPlotWidgets().size(), 4);
    delete copyDock;
}

TEST_F(PlotPanel, ThreePlotsWithAFieldAgainstAFieldSaveAndLoadWhole)
{
    PlotConfigData data;
    data.current.root = std::make_unique<SplitterData>();
    data.current.root->orientation = Qt::Vertical;
    PlotCanvasData xy;
    xy.setting.title = "Speed by throttle";
    xy.axisData.isMsgPath = true;
    xy.axisData.xField = "/TopicVehicleInfo/throttle";
    xy.axisData.xFieldType = "[float64]";
    xy.axisData.curveName = "/TopicVehicleInfo/throttle";
    AxisLineData line;
    line.color = "#9C74F2";
    line.yField = "/TopicVehicleInfo/vehicleSpeed";
    line.yFieldType = "[float64]";
    line.curveName = "/TopicVehicleInfo/vehicleSpeed";
    xy.axisData.axisLineList = {line};
    data.current.root->firstPlot = std::make_unique<PlotCanvasData>(xy);
    auto row = std::make_unique<SplitterData>();
    row->orientation = Qt::Horizontal;
    const PlotTemplateData defaults = DefaultPlotTemplate();
    row->firstPlot = std::make_unique<PlotCanvasData>(*defaults.root->firstSplitter->firstPlot);
    row->secondPlot = std::make_unique<PlotCanvasData>(*defaults.root->secondSplitter->firstPlot);
    data.current.root->secondSplitter = std::move(row);
    rviz::Config config;
    PlotConfig::Save(data, config);
    plot->load(config);
    ASSERT_EQ(plot->GetPlotWidgets().size(), 3);
    ExpectBinaryTree(plot->GetRootSplitter());
    PlotWidget* xyWidget = Widget("Speed by throttle");
    ASSERT_NE(xyWidget, nullptr);
    EXPECT_TRUE(xyWidget->IsMsgPath());
    // Speed against throttle once the fields are selected.
    ASSERT_TRUE(ServeWhilePublishing([&]() { return !xyWidget->GetCurves()[0]->Series().empty(); }, 20s));
    EXPECT_GE(xyWidget->GetCurves()[0]->Series().Point(0).y(), 10.0);

    rviz::Config saved;
    plot->save(saved);
    const auto layout = PlotConfig::Load(saved);
    ASSERT_NE(layout, nullptr);
    const auto plots = layout->current.root->Plots();
    ASSERT_EQ(plots.size(), 3U);
    EXPECT_EQ(plots[0]->axisData.axisLineList, xy.axisData.axisLineList);
    EXPECT_EQ(plots[0]->axisData.xField, xy.axisData.xField);
    EXPECT_TRUE(plots[0]->axisData.isMsgPath);
    EXPECT_EQ(plots[1]->setting.title, "Speed");
    EXPECT_EQ(plots[2]->setting.title, "Brake");
    EXPECT_EQ(plots[2]->axisData.axisLineList[0].color, "#F8CF49");
    EXPECT_EQ(layout->current.root->orientation, static_cast<int>(Qt::Vertical));
    EXPECT_EQ(layout->current.root->secondSplitter->orientation, static_cast<int>(Qt::Horizontal));

    // Loaded into another panel and saved again: the same text.
    auto* copy = new Plot();
    rviz::PanelDockWidget* copyDock = frame->getManager()->getWindowManager()->addPane("Plot copy", copy,
                                                                                        Qt::LeftDockWidgetArea);
    copy->initialize(frame->getManager());
    copyDock->resize(dock->size());
    copy->resize(plot->size());
    copy->load(saved);
    Pause(2s);
    rviz::Config again;
    copy->save(again);
    const auto reloaded = PlotConfig::Load(again);
    ASSERT_NE(reloaded, nullptr);
    const auto reloadedPlots = reloaded->current.root->Plots();
    ASSERT_EQ(reloadedPlots.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(reloadedPlots[i]->axisData, plots[i]->axisData) << i;
        EXPECT_EQ(reloadedPlots[i]->setting, plots[i]->setting) << i;
    }
    delete copyDock;
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRvizFrame(argc, argv, "plot_panel_test",
                                       [](rviz::VisualizationFrame& visualizationFrame, test_support::VirtualDisplay&) {
                                           visualizationFrame.setGeometry(0, 0, 1600, 1000);
                                           frame = &visualizationFrame;
                                           const int result = RUN_ALL_TESTS();
                                           frame = nullptr;
                                           return result;
                                       });
}

#include "route_planner_panel.h"

#include "foundation/set_qss.h"
#include "map_offset/map_offset.h"
#include "route_planner_logic/route_point_text.h"
#include "route_widget.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace rviz_plugin {

RoutePlannerPanel::RoutePlannerPanel(QWidget* parent) : RouteNodeManager(parent)
{
    SetupUi();
}

void RoutePlannerPanel::SetupUi()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    auto* top = new QHBoxLayout;
    addButton = new QPushButton("Add", this);
    addButton->setObjectName("MainWindow_addButton");
    totalLabel = new QLabel(this);
    totalLabel->setObjectName("MainWindow_totalLabel");
    top->addWidget(addButton);
    top->addStretch(1);
    top->addWidget(totalLabel);
    layout->addLayout(top);
    listWidget = new QListWidget(this);
    listWidget->setObjectName("MainWindow_listWidget");
    listWidget->setSelectionMode(QAbstractItemView::NoSelection);
    layout->addWidget(listWidget, 1);
    SetTotalNumber(0);
    SetQss().SetStyle(this, ":/Routeqrc/assets/qss/Route.qss");
    connect(addButton, &QPushButton::clicked, this, [this]() {
        if (GetRouteCount() < maxRoutes) {
            SwitchFocus(ListGenerateData(GetRouteCount()) != nullptr ? GetRouteCount() - 1 : -1);
        }
    });
}

void RoutePlannerPanel::onInitialize()
{
    RouteNodeManager::onInitialize();
    connect(this, &RouteNodeManager::SendMakeFlag, this, &RoutePlannerPanel::OnSendMakeFlag);
    connect(this, &RouteNodeManager::SendVisualAreaFocusOut, this, &RoutePlannerPanel::OnSendVisualAreaFocusOut);
    connect(this, &RouteNodeManager::FramesChanged, this, &RoutePlannerPanel::ComboBoxChangeSlot);
}

int RoutePlannerPanel::GetRouteCount() const
{
    return listWidget->count();
}

RouteWidget* RoutePlannerPanel::WidgetAt(int row) const
{
    return row >= 0 && row < listWidget->count() ? qobject_cast<RouteWidget*>(listWidget->itemWidget(listWidget->item(row)))
                                                 : nullptr;
}

RouteWidget* RoutePlannerPanel::ListGenerateData(int row)
{
    if (GetRouteCount() >= maxRoutes) {
        return nullptr;
    }
    auto* item = new QListWidgetItem;
    auto* widget = new RouteWidget;
    listWidget->insertItem(row, item);
    listWidget->setItemWidget(item, widget);
    InitRouteWidgetConnect(widget, item);
    UpdateRouteWidget(item);
    SetTotalNumber(GetRouteCount());
    CreateRouteData(static_cast<unsigned int>(row));
    QStringList frameNames;
    for (const std::string& frame : GetFrames()) {
        frameNames << QString::fromStdString(frame);
    }
    widget->RefreshComboBox(frameNames);
    addButton->setEnabled(GetRouteCount() < maxRoutes);
    return widget;
}

void RoutePlannerPanel::InitRouteWidgetConnect(RouteWidget* widget, QListWidgetItem* item)
{
    const auto route = [this, item]() { return listWidget->row(item); };
    connect(widget, &RouteWidget::ResizeHeight, this, [this, item]() { UpdateRouteWidget(item); });
    connect(widget, &RouteWidget::SendDeleteItemSignal, this, [this, item]() { SendDeleteItemSignalHandler(item); });
    connect(widget, &RouteWidget::SaveToConfig, this, &RoutePlannerPanel::configChanged);
    connect(widget, &RouteWidget::AddViaPoint, this, [this, route](int row) { AddWayPoint(row, route()); });
    connect(widget, &RouteWidget::DeleteViaPoint, this, [this, route](int row) { DeleteWayPoint(row, route()); });
    connect(widget, &RouteWidget::LineEditFocusIn, this, [this, route](int row) {
        SwitchFocus(route());
        StartSelectRoutePoint(row, route());
    });
    connect(widget, &RouteWidget::SendLineEditingFinishedPoint, this,
            [this, item](int row, Ogre::Vector3 point) { LineEditingFinishedPointHandler(item, row, point); });
    connect(widget, &RouteWidget::SendPublishRouteData, this, [this, route]() { PublishRouteData(route()); });
    connect(widget, &RouteWidget::SendPublishClearRouteData, this, [this, route]() { PublishClearRouteData(route()); });
    connect(widget, &RouteWidget::SendFixedFrameChange, this, [this](const QString& start) {
        const int open = start.indexOf('<');
        const int close = start.lastIndexOf('>');
        if (open >= 0 && close > open) {
            SetCameraViewLookAtFixedFrame(start.mid(open + 1, close - open - 1));
        }
    });
    connect(widget, &RouteWidget::SendCancelButtonClick, this, [this, route]() { UpdateDisplayRoutePoint(route(), true); });
}

void RoutePlannerPanel::UpdateRouteWidget(QListWidgetItem* item)
{
    if (auto* widget = qobject_cast<RouteWidget*>(listWidget->itemWidget(item))) {
        item->setSizeHint(QSize(listWidget->viewport()->width(), std::max(listItemHeight, widget->GetPreferredHeight())));
    }
}

void RoutePlannerPanel::SetTotalNumber(int total)
{
    totalLabel->setText(QString("Total:  %1").arg(total));
}

void RoutePlannerPanel::SendDeleteItemSignalHandler(QListWidgetItem* item)
{
    const int row = listWidget->row(item);
    if (row < 0) {
        return;
    }
    DeleteRouteData(static_cast<unsigned int>(row));
    delete listWidget->takeItem(row);
    SetTotalNumber(GetRouteCount());
    addButton->setEnabled(true);
    focusedRoute = -1;
    SwitchFocus();
    Q_EMIT configChanged();
}

void RoutePlannerPanel::SetRouteWidgetFocus(int route)
{
    for (int row = 0; row < GetRouteCount(); ++row) {
        WidgetAt(row)->SetChecked(row == route);
    }
    focusedRoute = route;
}

void RoutePlannerPanel::SwitchFocus()
{
    SwitchFocus(GetRouteCount() > 0 ? GetRouteCount() - 1 : -1);
}

void RoutePlannerPanel::SwitchFocus(int route)
{
    if (route == focusedRoute) {
        return;
    }
    SetRouteWidgetFocus(route);
    UpdateDisplayRoutePoint(route, route >= 0);
}

void RoutePlannerPanel::LineEditingFinishedPointHandler(QListWidgetItem* item, int point, const Ogre::Vector3& position)
{
    MakeFlag(point, listWidget->row(item), position);
}

void RoutePlannerPanel::OnSendMakeFlag(const Ogre::Vector3& position)
{
    RouteWidget* widget = WidgetAt(focusedRoute);
    if (widget == nullptr) {
        return;
    }
    Ogre::Vector3 platform = position;
    Orsa::ApplyMapOffset(platform);
    widget->SetPointText(GetCurrentPointIndex(),
                         QString::fromStdString(FormatRoutePoint(platform.x, platform.y, platform.z)));
}

void RoutePlannerPanel::OnSendVisualAreaFocusOut()
{
    // The selection stays until a click, the right button or Esc: focus leaving the view is not a choice.
}

void RoutePlannerPanel::ComboBoxChangeSlot()
{
    QStringList frameNames;
    for (const std::string& frame : GetFrames()) {
        frameNames << QString::fromStdString(frame);
    }
    for (int row = 0; row < GetRouteCount(); ++row) {
        WidgetAt(row)->RefreshComboBox(frameNames);
    }
}

void RoutePlannerPanel::mousePressEvent(QMouseEvent* event)
{
    QuitSelectRoutePoint();
    RouteNodeManager::mousePressEvent(event);
}

std::string RoutePlannerPanel::GetRouteName(int route) const
{
    RouteWidget* widget = WidgetAt(route);
    return widget != nullptr ? widget->GetSaveData().name.toStdString() : RouteNodeManager::GetRouteName(route);
}

void RoutePlannerPanel::save(rviz::Config config) const
{
    RouteNodeManager::save(config);
    for (int row = 0; row < GetRouteCount(); ++row) {
        const RouteWidget& widget = *WidgetAt(row);
        rviz::Config route = config.mapMakeChild(QString("Route%1").arg(row + 1));
        route.mapSetValue("Name", widget.GetSaveData().name);
        route.mapSetValue("Start Frame", widget.GetSaveData().start);
        route.mapSetValue("EndPoint", widget.GetSaveData().end);
        SaveWayPointData(route, widget);
    }
}

void RoutePlannerPanel::SaveWayPointData(rviz::Config& config, const RouteWidget& widget) const
{
    const QStringList& points = widget.GetSaveData().wayPoints;
    for (int row = 0; row < points.size(); ++row) {
        rviz::Config point = config.mapMakeChild(QString("W%1").arg(row + 1));
        point.mapSetValue("Way Point", QString("W%1").arg(row + 1));
        point.mapSetValue("Value", points[row]);
    }
}

void RoutePlannerPanel::load(const rviz::Config& config)
{
    RouteNodeManager::load(config);
    for (int row = 0; row < maxRoutes; ++row) {
        const rviz::Config route = config.mapGetChild(QString("Route%1").arg(row + 1));
        if (!route.isValid()) {
            break;
        }
        LoadRouteData(route, row);
    }
    SwitchFocus();
}

void RoutePlannerPanel::LoadRouteData(const rviz::Config& config, int row)
{
    RouteWidget* widget = ListGenerateData(row);
    if (widget == nullptr) {
        return;
    }
    LoadWayPointData(config, widget, row);
    RouteWidget::SaveData data;
    config.mapGetString("Name", &data.name);
    config.mapGetString("Start Frame", &data.start);
    config.mapGetString("EndPoint", &data.end);
    for (int point = 0; point < widget->GetWayPointCount(); ++point) {
        data.wayPoints << widget->GetPointText(point);
    }
    widget->Restore(data);
    Ogre::Vector3 position = Ogre::Vector3::ZERO;
    if (!data.end.isEmpty() && RouteWidget::VerifyPoint(data.end, position)) {
        MakeFlag(-1, row, position);
    }
    widget->UpdateSaveData();
    widget->SetDisEditabled();
}

void RoutePlannerPanel::LoadWayPointData(const rviz::Config& config, RouteWidget* widget, int route)
{
    for (int point = 0; point < RouteWidget::maxWayPoints; ++point) {
        const rviz::Config saved = config.mapGetChild(QString("W%1").arg(point + 1));
        if (!saved.isValid()) {
            break;
        }
        QString value;
        saved.mapGetString("Value", &value);
        AddWayPoint(point, route);
        widget->GenerateData(point);
        widget->SetPointText(point, value);
        Ogre::Vector3 position = Ogre::Vector3::ZERO;
        if (!value.isEmpty() && RouteWidget::VerifyPoint(value, position)) {
            MakeFlag(point, route, position);
        }
    }
}

} // namespace rviz_plugin

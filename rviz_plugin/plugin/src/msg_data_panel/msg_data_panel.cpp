#include "msg_data_panel.h"

#include "msg_data_config.h"
#include "msg_view_models/table_model.h"
#include "msg_viewer_panel.h"
#include "msg_viewer_widgets/edit_title.h"
#include "msg_viewer_widgets/key_value_grid.h"
#include "msg_viewer_widgets/key_value_item.h"
#include "msg_viewer_widgets/key_value_panel.h"
#include "msg_viewer_widgets/key_value_view.h"
#include "msg_viewer_widgets/msg_definition_widget.h"
#include "msg_viewer_widgets/structured_data_view.h"
#include "msg_viewer_widgets/table_view.h"

#include <rviz/panel_dock_widget.h>
#include <rviz/visualization_manager.h>
#include <rviz/window_manager_interface.h>

#include <QCursor>

#include <ros/ros.h>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace rviz_plugin {

MsgDataPanel::MsgDataPanel(QWidget* parent) : rviz::Panel(parent), dockAreas(2) {}

MsgDataPanel::~MsgDataPanel()
{
    for (rviz::PanelDockWidget* dock : docks) {
        dock->removeEventFilter(this);
        delete dock;
    }
    qDeleteAll(records);
}

void MsgDataPanel::onInitialize()
{
    CreateDefinitionWidget();
    InitDisplayPanel();
    FillWindowDockVector();
    CreateMsgViewerPanel();
    msgDataConfig = new MsgDataConfig(*this, this);
    if (mainWindow != nullptr) {
        mainWindow->installEventFilter(this);
        if (QWidget* central = CentralWidget()) {
            central->installEventFilter(this);
        }
    }
}

void MsgDataPanel::CreateDefinitionWidget()
{
    definitionWidget = new MsgDefinitionWidget(this);
    definitionWidget->hide();
    definitionWidget->Initialize(&msgRecord);
    connect(definitionWidget, &MsgDefinitionWidget::ChangedToDisplayWindow, this, &MsgDataPanel::UpdateToDisplayWindow);
    connect(definitionWidget, &MsgDefinitionWidget::ShowDisplayWindow, this, &MsgDataPanel::ShowDisplayPanel);
    connect(definitionWidget, &MsgDefinitionWidget::SignalConfigChanged, this, &MsgDataPanel::SlotConfigChanged);
}

void MsgDataPanel::InitDisplayPanel()
{
    rviz::WindowManagerInterface* windows = vis_manager_ != nullptr ? vis_manager_->getWindowManager() : nullptr;
    mainWindow = windows != nullptr ? windows->getParentWindow() : nullptr;
}

void MsgDataPanel::CreateMsgViewerPanel()
{
    viewerPanel = new MsgViewerPanel(this);
    viewerPanel->OnInitialize();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(viewerPanel);
    connect(viewerPanel, &MsgViewerPanel::SigBackgroudColorChange, this, &MsgDataPanel::SlotChangeBackgroundColor);
    connect(viewerPanel, &MsgViewerPanel::DisplayPanel, this, &MsgDataPanel::DisplayPanelVisibleChanged);
    connect(viewerPanel, &MsgViewerPanel::RemoveSelectMsg, this, &MsgDataPanel::RemoveRecord);
    connect(viewerPanel, &MsgViewerPanel::RemoveSelectMsg, definitionWidget, &MsgDefinitionWidget::RemoveSelectItem);
    connect(viewerPanel, &MsgViewerPanel::SetAlignment, this, &MsgDataPanel::SetAlignment);
    connect(viewerPanel, &MsgViewerPanel::EditSelectMsg, definitionWidget, &MsgDefinitionWidget::EditSelectItem);
    connect(viewerPanel, &MsgViewerPanel::SignalUpdateRecord, this, &MsgDataPanel::SlotUpdateRecord);
    connect(viewerPanel->GetAddPanelButton(), &QPushButton::clicked, definitionWidget,
            &MsgDefinitionWidget::ExecuteDefinitionDialog);
}

QWidget* MsgDataPanel::CentralWidget() const
{
    auto* window = qobject_cast<QMainWindow*>(mainWindow);
    return window != nullptr ? window->centralWidget() : nullptr;
}

QSize MsgDataPanel::CentralSize() const
{
    const QWidget* central = CentralWidget();
    return central != nullptr ? central->size() : QSize();
}

QPoint MsgDataPanel::CentralTopLeft() const
{
    const QWidget* central = CentralWidget();
    return central != nullptr ? central->mapToGlobal(QPoint(0, 0)) : QPoint();
}

StructuredDataView* MsgDataPanel::InitStructuredDataView(MsgRecord* record)
{
    auto* view = new StructuredDataView(*record);
    view->CreateStructuredView();
    connect(view, &StructuredDataView::SignalOperateEnd, this, &MsgDataPanel::SlotConfigChanged);
    connect(view, &StructuredDataView::SignalConfigChanged, this, &MsgDataPanel::SlotConfigChanged);
    views.push_back(view);
    return view;
}

rviz::PanelDockWidget* MsgDataPanel::CreatePanelDock(const QString& name, StructuredDataView* view)
{
    auto* background = new QWidget();
    background->setObjectName("backgroundWidget");
    auto* layout = new QVBoxLayout(background);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(view);
    background->setStyleSheet(QString("QWidget#backgroundWidget{ background-color: %1;}")
                                  .arg(backgroundColor == "white" ? "#F2F1F0" : backgroundColor));
    rviz::WindowManagerInterface* windows = vis_manager_ != nullptr ? vis_manager_->getWindowManager() : nullptr;
    rviz::PanelDockWidget* dock = windows != nullptr
                                      ? windows->addPane(name, background, Qt::LeftDockWidgetArea, true)
                                      : new rviz::PanelDockWidget(name);
    if (windows == nullptr) {
        dock->setContentWidget(background);
    }
    docks.push_back(dock);
    AddPanelDockWidget(dock);
    dock->setFeatures(static_cast<QDockWidget::DockWidgetFeatures>(7));
    dock->setAllowedAreas(Qt::AllDockWidgetAreas);
    dock->setFloating(true);
    dock->installEventFilter(this);
    return dock;
}

void MsgDataPanel::InitEditTitle(MsgRecord* record, rviz::PanelDockWidget* dock)
{
    auto* title = new EditTitle(*record, dock);
    title->OnInitEditTitle();
    title->SetTitleShowContent(dock->windowTitle());
    dock->setTitleBarWidget(title);
    editTitles.push_back(title);
    // Only the title's own button unticks the panel: at exit the application closes every window,
    // floating docks included, and that must not change what is saved.
    connect(title, &EditTitle::CloseClicked, this, [this, dock]() {
        viewerPanel->SetCheckBoxState(GetPanelDockIndex(dock), false);
        dock->hide();
    });
    connect(&record->GetSubscriber(), &MsgSubscriber::SignalErrorCatched, title, &EditTitle::SlotErrorCatched);
}

void MsgDataPanel::InitPanel(rviz::PanelDockWidget* dock)
{
    const int index = docks.size() - 1;
    dock->setProperty("position", index);
    connect(dock, &QDockWidget::visibilityChanged, this,
            [this, dock](bool visible) { PanelVisibilityChanged(GetPanelDockIndex(dock), visible); });
    SetPanelDockBgColor(index, backgroundColor);
    SetPanelDockAlignment(index, alignment);
}

void MsgDataPanel::UpdateToDisplayWindow()
{
    const QString name = definitionWidget->GetPanelName();
    viewerPanel->AddPanel(name, true);
    auto* record = new MsgRecord();
    records.push_back(record);
    StructuredDataView* view = InitStructuredDataView(record);
    rviz::PanelDockWidget* dock = CreatePanelDock(name, view);
    InitEditTitle(record, dock);
    InitPanel(dock);
    ShowDisplayPanel(records.size() - 1, name);
}

void MsgDataPanel::ShowDisplayPanel(int index, const QString& name)
{
    if (index < 0 || index >= records.size()) {
        return;
    }
    RemoveDockWindowRecord(docks[index]);
    viewerPanel->RenamePanel(index, name);
    DrawRecordMsgView(index, name);
    if (!viewerPanel->IsChecked(index)) {
        records[index]->ShutdownSubscriber();
    }
    SlotConfigChanged();
}

const MsgRecordStruct::PanelData* MsgDataPanel::GetLoadedPanel(int index) const
{
    const auto found = loadedPanels.find(records.value(index));
    return found == loadedPanels.end() ? nullptr : &found->second;
}

void MsgDataPanel::DrawRecordMsgView(int index, const QString& name)
{
    loadedPanels.erase(records[index]);
    const auto& kinds = definitionWidget->GetSelectedTypeVec();
    const bool table = index < static_cast<int>(kinds.size()) && kinds[index] == "isSelectedArray";
    records[index]->UpdateSelectionDataFromDefinition(table, definitionWidget->GetSelectedArrayName(index),
                                                      definitionWidget->GetSelectedItemMap(index));
    records[index]->UpdateSelection();
    editTitles[index]->UpdateStatusButtonIconShow(table);
    views[index]->UpdateView();
    SetPanelDockBgColor(index, backgroundColor);
    docks[index]->setWindowTitle(name);
    InitPanelDockGeometry(index, docks[index], true);
    editTitles[index]->SetTitleShowContent(name);
}

void MsgDataPanel::InitPanelDockGeometry(int index, rviz::PanelDockWidget* dock, bool useViewHeight)
{
    const int number = cascadeSlots.key(dock, index);
    const int height = dockLayout.CascadeHeight(views[GetPanelDockIndex(dock)]->GetHeight(), useViewHeight);
    SetPanelDockGeometry(dock, dockLayout.CascadePosition(number), QSize(dockLayout.Settings().dockWidth, height));
    dock->show();
    dock->raise();
}

void MsgDataPanel::DisplayWindowsByLoadedData(const MsgRecordStruct::PanelData* panel)
{
    if (panel == nullptr || viewerPanel == nullptr || definitionWidget == nullptr) {
        return;
    }
    viewerPanel->AddPanel(panel->panelName, panel->isChecked);
    auto* record = new MsgRecord();
    record->ParsePanelData(panel);
    records.push_back(record);
    loadedPanels[record] = *panel;
    StructuredDataView* view = InitStructuredDataView(record);
    rviz::PanelDockWidget* dock = CreatePanelDock(panel->panelName, view);
    InitEditTitle(record, dock);
    definitionWidget->AddSelectedDataByLoadedData(record, panel);
    InitPanel(dock);
    DrawRecordMsgViewByLoadedData(panel, records.size() - 1);
}

void MsgDataPanel::DrawRecordMsgViewByLoadedData(const MsgRecordStruct::PanelData* panel, int index)
{
    MsgRecord* record = records[index];
    record->UpdateSelection();
    editTitles[index]->UpdateStatusButtonIconShow(panel->hasArrayField);
    views[index]->UpdateView();
    SetPanelDockBgColor(index, backgroundColor);
    if (panel->hasArrayField) {
        TableModel* model = views[index]->GetTableView()->GetModel();
        model->SetStatusAndSortIndex(panel->showStatus, panel->sortIndex);
        // Saved fields are the columns in order, a merged colour being its four channels.
        int column = 0;
        for (const MsgRecordStruct::FieldData& field : panel->fields) {
            if (!field.constants.isEmpty()) {
                model->SetLoadedConstants(column, field.constants);
            }
            const bool channel = field.fieldType == "[float64](color)";
            column += !channel || field.fieldName.endsWith("/a") ? 1 : 0;
        }
    } else {
        const QList<KeyValuePanel*>& panels = views[index]->GetKeyValueView()->GetKeyValuePanels();
        for (int at = 0; at < panels.size() && at < panel->topics.size(); ++at) {
            QMap<QString, ConstantList> constants;
            for (const MsgRecordStruct::FieldData& field : panel->topics[at].fields) {
                constants[field.fieldName] = field.constants;
            }
            for (KeyValueItem* item : panels[at]->GetKeyValueGrid()->GetKeyValueItems()) {
                if (!constants.value(item->GetOriginalKey()).isEmpty()) {
                    item->ConvertConstants(constants.value(item->GetOriginalKey()));
                }
            }
        }
    }
    docks[index]->setWindowTitle(panel->panelName);
    editTitles[index]->SetTitleShowContent(panel->panelName);
    if (panel->widgetPosition.isValid()) {
        SetPanelDockGeometry(docks[index], panel->widgetPosition.topLeft(), panel->widgetPosition.size());
    } else {
        InitPanelDockGeometry(index, docks[index], true);
    }
    docks[index]->setVisible(panel->isChecked);
    if (!panel->isChecked) {
        record->ShutdownSubscriber();
    }
}

void MsgDataPanel::save(rviz::Config config) const
{
    rviz::Panel::save(config);
    rviz::Config child = config.mapMakeChild("MsgDataPanel");
    child.mapSetValue("BackgroundColor", backgroundColor);
    child.mapSetValue("Alignment", static_cast<int>(alignment));
    if (msgDataConfig != nullptr) {
        msgDataConfig->Save(child);
    }
}

void MsgDataPanel::load(const rviz::Config& config)
{
    rviz::Panel::load(config);
    const rviz::Config child = config.mapGetChild("MsgDataPanel");
    if (!child.isValid() || viewerPanel == nullptr) {
        return;
    }
    QString color;
    int alignmentValue = 1;
    child.mapGetString("BackgroundColor", &color);
    child.mapGetInt("Alignment", &alignmentValue);
    viewerPanel->SetColorAndAlignmentButtonClicked(color, alignmentValue);
    for (const MsgRecordStruct::PanelData& panel : MsgDataConfig::Load(child)) {
        DisplayWindowsByLoadedData(&panel);
    }
}

void MsgDataPanel::RemoveRecord(int index)
{
    if (index < 0 || index >= records.size()) {
        return;
    }
    rviz::PanelDockWidget* dock = docks[index];
    RemovePanelDockWidget(dock);
    RemoveDockWindowRecord(dock);
    dock->removeEventFilter(this);
    dock->hide();
    dock->deleteLater();
    views.removeAt(index);
    docks.removeAt(index);
    editTitles.removeAt(index);
    loadedPanels.erase(records[index]);
    delete records.takeAt(index);
    for (int at = 0; at < docks.size(); ++at) {
        docks[at]->setProperty("position", at);
    }
    SlotConfigChanged();
}

void MsgDataPanel::SlotUpdateRecord(int index, bool checked)
{
    if (index < 0 || index >= records.size()) {
        return;
    }
    RemoveDockWindowRecord(docks[index]);
    if (checked) {
        records[index]->UpdateSelection();
    } else {
        records[index]->ShutdownSubscriber();
    }
    SlotConfigChanged();
}

void MsgDataPanel::DisplayPanelVisibleChanged(int index, bool visible)
{
    if (index < 0 || index >= docks.size()) {
        return;
    }
    docks[index]->setVisible(visible);
    SlotUpdateRecord(index, visible);
}

void MsgDataPanel::PanelVisibilityChanged(int index, bool visible)
{
    if (index >= 0 && index < views.size()) {
        views[index]->StartTimer(visible);
        editTitles[index]->StartTimer(visible);
    }
}

void MsgDataPanel::SlotChangeBackgroundColor(const QString& color)
{
    backgroundColor = color;
    SetMsgViewerDisPlayBackgroundColor(color);
    SlotConfigChanged();
}

void MsgDataPanel::SetMsgViewerDisPlayBackgroundColor(const QString& color)
{
    if (color.isEmpty()) {
        return;
    }
    for (int index = 0; index < docks.size(); ++index) {
        SetPanelDockBgColor(index, color);
    }
}

void MsgDataPanel::SetPanelDockBgColor(int index, const QString& color)
{
    if (index < 0 || index >= docks.size()) {
        return;
    }
    docks[index]->setStyleSheet(QString("background-color:%1;border:none").arg(color));
    docks[index]->setWindowOpacity(color == "#6C6C6B" ? 0.5 : 1.0);
    views[index]->SetStructedDataViewBackgroundColor(color);
    editTitles[index]->SetTitleBackgroundColor(color);
    if (QWidget* background = docks[index]->findChild<QWidget*>("backgroundWidget")) {
        background->setStyleSheet(QString("QWidget#backgroundWidget{ background-color: %1;}")
                                      .arg(color == "white" ? "#F2F1F0" : color));
    }
}

void MsgDataPanel::SetAlignment(const Qt::Alignment& value)
{
    if (value == alignment) {
        return;
    }
    alignment = value;
    for (int index = 0; index < views.size(); ++index) {
        SetPanelDockAlignment(index, value);
    }
    SlotConfigChanged();
}

void MsgDataPanel::SetPanelDockAlignment(int index, Qt::Alignment value)
{
    views[index]->SetStructedDataViewAlignment(value);
}

void MsgDataPanel::SlotConfigChanged()
{
    Q_EMIT configChanged();
}

int MsgDataPanel::GetPanelDockIndex(const rviz::PanelDockWidget* dock) const
{
    return docks.indexOf(const_cast<rviz::PanelDockWidget*>(dock));
}

void MsgDataPanel::AddPanelDockWidget(rviz::PanelDockWidget* dock)
{
    for (auto slot = cascadeSlots.begin(); slot != cascadeSlots.end(); ++slot) {
        if (slot.value() == nullptr) {
            slot.value() = dock;
            return;
        }
    }
    cascadeSlots.insert(cascadeSlots.isEmpty() ? 0 : cascadeSlots.lastKey() + 1, dock);
}

void MsgDataPanel::RemovePanelDockWidget(rviz::PanelDockWidget* dock)
{
    for (auto slot = cascadeSlots.begin(); slot != cascadeSlots.end(); ++slot) {
        if (slot.value() == dock) {
            slot.value() = nullptr;
        }
    }
}

void MsgDataPanel::RemoveDockWindowRecord(rviz::PanelDockWidget* dock)
{
    bool removed = false;
    for (DockArea& area : dockAreas) {
        for (int at = area.windows.size() - 1; at >= 0; --at) {
            if (area.windows[at].dock == dock) {
                area.windows.removeAt(at);
                removed = true;
            }
        }
    }
    if (removed) {
        AdjustDockWindowSize();
    }
}

QVector<rviz::PanelDockWidget*> MsgDataPanel::GetAreaDocks(DockAreaIndex area) const
{
    QVector<rviz::PanelDockWidget*> result;
    for (const WindowInfo& window : dockAreas[area].windows) {
        result.push_back(window.dock);
    }
    return result;
}

void MsgDataPanel::SetPanelDockGeometry(rviz::PanelDockWidget* dock, const QPoint& point, const QSize& size)
{
    dock->setFixedSize(size);
    dock->setMinimumSize(0, 0);
    dock->setMaximumSize(16777215, 16777215);
    dock->move(point);
    AdjustPanelDockLayout(dock);
}

void MsgDataPanel::AdjustPanelDockLayout(rviz::PanelDockWidget* dock)
{
    const int index = GetPanelDockIndex(dock);
    const int columns = dockLayout.KeyValueColumns(dock->width());
    if (index >= 0 && columns > 0) {
        views[index]->AdjustLayout(columns);
    }
}

void MsgDataPanel::FillWindowDockVector()
{
    const QSize central = CentralSize();
    const QPoint origin = CentralTopLeft();
    for (const DockAreaIndex area : {LeftArea, BottomArea}) {
        const QRect rect = dockLayout.Area(area, origin, central);
        dockAreas[area].topLeft = rect.topLeft();
        dockAreas[area].bottomRight = rect.bottomRight();
        UpdateAreaList(area);
    }
    QTimer::singleShot(100, this, &MsgDataPanel::AdjustDockWindowSize);
}

void MsgDataPanel::UpdateAreaList(DockAreaIndex area)
{
    const int capacity = dockLayout.Capacity(area, CentralSize());
    QList<WindowInfo>& windows = dockAreas[area].windows;
    while (windows.size() > capacity) {
        rviz::PanelDockWidget* dock = windows.takeLast().dock;
        InitPanelDockGeometry(GetPanelDockIndex(dock), dock, false);
    }
}

void MsgDataPanel::AdjustDockWindowSize()
{
    const QSize central = CentralSize();
    const QPoint origin = CentralTopLeft();
    for (const DockAreaIndex area : {LeftArea, BottomArea}) {
        QList<WindowInfo>& windows = dockAreas[area].windows;
        int visible = 0;
        for (const WindowInfo& window : windows) {
            visible += window.dock->isVisible() ? 1 : 0;
        }
        const QVector<QRect> slotRects = dockLayout.Slots(area, origin, central, windows.size(), visible);
        int slot = 0;
        for (WindowInfo& window : windows) {
            if (!window.dock->isVisible() || slot >= slotRects.size()) {
                continue;
            }
            window.rect = slotRects[slot++];
            SetPanelDockGeometry(window.dock, window.rect.topLeft(), window.rect.size());
        }
    }
}

int MsgDataPanel::AreaAt(const QPoint& global) const
{
    for (const DockAreaIndex area : {LeftArea, BottomArea}) {
        if (QRect(dockAreas[area].topLeft, dockAreas[area].bottomRight).contains(global)) {
            return area;
        }
    }
    return -1;
}

void MsgDataPanel::PushDockToList(DockAreaIndex area, rviz::PanelDockWidget* dock, const QPoint& cursor)
{
    QList<WindowInfo>& windows = dockAreas[area].windows;
    const int capacity = dockLayout.Capacity(area, CentralSize());
    for (const WindowInfo& window : windows) {
        if (window.dock == dock) {
            SetPanelDockGeometry(dock, window.rect.topLeft(), window.rect.size());
            return;
        }
    }
    if (capacity > windows.size()) {
        windows.push_back({QRect(), dock});
        AdjustDockWindowSize();
        return;
    }
    for (int at = 0; at < windows.size(); ++at) {
        if (!windows[at].rect.contains(cursor)) {
            continue;
        }
        rviz::PanelDockWidget* old = windows[at].dock;
        SetPanelDockGeometry(old, dockLayout.ThrownOutPosition(CentralTopLeft(), CentralSize(), at),
                             QSize(dockLayout.Settings().dockWidth, dockLayout.Settings().dockHeight));
        windows[at].dock = dock;
        SetPanelDockGeometry(dock, windows[at].rect.topLeft(), windows[at].rect.size());
        return;
    }
}

void MsgDataPanel::ReleasePanelDockAt(rviz::PanelDockWidget* dock, const QPoint& press, const QPoint& release)
{
    pressPoint = press;
    releasePoint = release;
    canAdjust = true;
    const int pressedArea = AreaAt(press);
    const int releasedArea = AreaAt(release);
    if (pressedArea >= 0 && releasedArea < 0) {
        RemoveDockWindowRecord(dock);
        dock->resize(dockLayout.Settings().dockWidth, dockLayout.Settings().dockHeight);
    }
    if (pressedDock == dock && resizedDock == dock) {
        RemoveDockWindowRecord(dock);
        InitPanelDockGeometry(0, dock, false);
        resizedDock = nullptr;
        return;
    }
    const QSize central = CentralSize();
    if (central.width() - 2 * dockLayout.Settings().leftMargin > dockLayout.Settings().minSlotWidth &&
        central.height() > dockLayout.Settings().minSlotHeight && releasedArea >= 0) {
        PushDockToList(static_cast<DockAreaIndex>(releasedArea), dock, release);
    }
}

void MsgDataPanel::EventFilterPanelDock(rviz::PanelDockWidget* dock, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            pressPoint = QCursor::pos();
            pressedDock = dock;
            doubleClicked = false;
            const int area = AreaAt(pressPoint);
            isMoving = false;
            if (area >= 0 && GetAreaDocks(static_cast<DockAreaIndex>(area)).contains(dock)) {
                isMoving = true;
                movingArea = area;
                movingDock = dock;
            }
        }
        break;
    case QEvent::Move:
        if (isMoving && movingDock == dock) {
            canAdjust = false;
            if (AreaAt(QCursor::pos()) != movingArea) {
                RemoveDockWindowRecord(dock);
                isMoving = false;
                canAdjust = true;
            }
        } else if (doubleClicked) {
            doubleClicked = false;
            SetPanelDockGeometry(dock, CentralTopLeft() + QPoint(CentralSize().width() - dockLayout.Settings().dockWidth, 0),
                                 QSize(dockLayout.Settings().dockWidth, dockLayout.Settings().dockHeight));
        }
        break;
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            ReleasePanelDockAt(dock, pressPoint, QCursor::pos());
            pressedDock = nullptr;
        }
        break;
    case QEvent::MouseButtonDblClick:
        if (CentralWidget() != nullptr && !QRect(CentralTopLeft(), CentralSize()).contains(QCursor::pos()) &&
            !dock->isWindow()) {
            doubleClicked = true;
            RemoveDockWindowRecord(dock);
        }
        break;
    case QEvent::Resize:
        resizedDock = pressedDock == dock ? dock : resizedDock;
        AdjustPanelDockLayout(dock);
        break;
    case QEvent::Close:
        // rviz quits by closing every window after marking its configuration unchanged; a floating
        // dock is a window, and rviz takes its hiding for a change of the layout and would ask to save.
        if (!ros::ok() && mainWindow != nullptr) {
            dock->disconnect(mainWindow);
        }
        RemoveDockWindowRecord(dock);
        break;
    default:
        break;
    }
}

bool MsgDataPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (auto* dock = qobject_cast<rviz::PanelDockWidget*>(watched); dock != nullptr && docks.contains(dock)) {
        EventFilterPanelDock(dock, event);
    } else if (canAdjust && ((watched == mainWindow && event->type() == QEvent::Move) ||
                             (watched == CentralWidget() && event->type() == QEvent::Resize))) {
        FillWindowDockVector();
    }
    return rviz::Panel::eventFilter(watched, event);
}

} // namespace rviz_plugin

#include "kora_vision_display.h"

#include "associated_widget.h"
#include "kora_vision_property.h"
#include "total_widget.h"
#include "video_control_widget.h"
#include "videos_widget.h"

#include "foundation/config_load_guard.h"
#include "foundation/heap_settings.h"
#include "foundation/logger.h"
#include "foundation/memory_exception.h"
#include "foundation/rviz_helpers.h"
#include "kora_vision_logic/vision_name.h"
#include "widgets/title_bar_base.h"

#include <QApplication>
#include <QDesktopWidget>
#include <QFont>
#include <QPushButton>

#ifndef Q_MOC_RUN
#include <rviz/config.h>
#include <rviz/display_context.h>
#include <rviz/panel_dock_widget.h>
#include <rviz/window_manager_interface.h>
#endif

#include <algorithm>
#include <new>

namespace rviz_plugin {

namespace {
const char* const logModule = "KoraVision";
const QColor okForeground(40, 120, 197);
const QRect listPanelGeometry(QPoint(0, 0), QPoint(233, 181));
constexpr int enabledFontWeight = 75;

void LogError(const std::string& message)
{
    Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Error, message);
}
} // namespace

KoraVisionDisplay::KoraVisionDisplay()
    : geometryOfState{{VideosWidget::List, QRect()}, {VideosWidget::FullScreen, QRect()}}
{
}

KoraVisionDisplay::~KoraVisionDisplay()
{
    // Items first: each takes its pipeline down before the widgets that show it go.
    while (!visionProperties.empty()) {
        visionProperties.pop_back();
    }
    delete associatedWidget;
    associatedWidget = nullptr;
}

void KoraVisionDisplay::onInitialize()
{
    std::set_new_handler(Orsa::HandleMemoryException);
    WriteHeapFiguresWhenAsked();
    rviz::Display::onInitialize();
    associatedWidget = new AssociatedWidget();
    associatedWidget->Init();
    VideosWidget* videos = associatedWidget->GetTotalWidget()->GetVideosWidget();
    videos->SetCreatePopupPanelCallback(
        [this](const QString& name, QWidget* contents) { return CreatePopupPanel(name, contents); });
    connect(associatedWidget, &AssociatedWidget::GeneratedNewItemWidget, this,
            &KoraVisionDisplay::OnSendGeneratedNewItemWidget);
    connect(associatedWidget, &AssociatedWidget::DeleteItemWidget, this, &KoraVisionDisplay::OnSendDeleteWidget);
    setAssociatedWidget(associatedWidget);

    rviz::PanelDockWidget* panel = getAssociatedWidgetPanel();
    if (panel != nullptr) {
        titleBar = new TitleBarBase(panel);
        connect(titleBar, &TitleBarBase::DoubleClick, this, &KoraVisionDisplay::SetFloating);
        titleBar->SetMiniAndMaxIconShow(true);
        titleBar->SetWindowTitle("KORA Vision");
        titleBar->SetTitleBarIcon(":/videoqrc/assets/image/ic_camera.png");
        const std::pair<const char*, void (KoraVisionDisplay::*)()> actions[] = {
            {"minimizeButton", &KoraVisionDisplay::OnSendMinimizeScreenSwitch},
            {"maximizeButton", &KoraVisionDisplay::OnSendFullScreenSwitch},
            {"closeButton", &KoraVisionDisplay::OnSendCloseButtonClicked},
        };
        for (const auto& action : actions) {
            if (auto* button = titleBar->findChild<QPushButton*>(action.first)) {
                connect(button, &QPushButton::clicked, this, action.second);
            }
        }
        panel->setTitleBarWidget(titleBar);
    }

    QDesktopWidget* desktop = QApplication::desktop();
    if (desktop == nullptr) {
        LogError("The desktop cannot be found. The video panel size cannot be displayed properly.");
        return;
    }
    geometryOfState[VideosWidget::FullScreen] = desktop->screenGeometry(associatedWidget);
    geometryOfState[VideosWidget::List] = listPanelGeometry;
    if (panel != nullptr) {
        panel->setGeometry(geometryOfState[VideosWidget::List]);
    }
    Orsa::Logger::GetInstance().WriteLog(logModule, Orsa::LogLevel::Info, "KoraVisionDisplay initialized.");
}

rviz::PanelDockWidget* KoraVisionDisplay::CreatePopupPanel(const QString& name, QWidget* contents)
{
    if (context_ == nullptr) {
        LogError("context_ is nullptr, cannot create pop-up panel.");
        return nullptr;
    }
    rviz::WindowManagerInterface* windowManager = context_->getWindowManager();
    if (windowManager == nullptr) {
        LogError("WindowManager is nullptr, cannot create pop-up panel.");
        return nullptr;
    }
    return windowManager->addPane(name, contents, Qt::LeftDockWidgetArea, true);
}

void KoraVisionDisplay::OnSendGeneratedNewItemWidget(int index, VideoControlWidget* item)
{
    auto property = std::make_unique<KoraVisionProperty>(
        "Kora Vision Property", "To configure one certain way for the visualizes recognition data.");
    KoraVisionProperty* raw = property.get();
    raw->Initialize(item, context_, this, scene_node_, scene_manager_);
    connect(item, &VideoControlWidget::MousePressSignal, this, [this, raw]() { SetKoraVisionPropertyExpend(raw); },
            Qt::DirectConnection);
    const int position = std::clamp(index, 0, static_cast<int>(visionProperties.size()));
    addChild(raw, position);
    raw->OnEnable();
    connect(raw, &KoraVisionProperty::ResetDisplaySignal, this, &KoraVisionDisplay::ResetPluginDisplay);
    connect(raw, &KoraVisionProperty::RenderContextSignal, this, &KoraVisionDisplay::RenderPluginContext);
    visionProperties.insert(visionProperties.begin() + position, std::move(property));
    RenumberVisionProperties();
}

void KoraVisionDisplay::OnSendDeleteWidget(int index)
{
    if (index < 0 || index >= static_cast<int>(visionProperties.size())) {
        return;
    }
    visionProperties.erase(visionProperties.begin() + index);
    RenumberVisionProperties();
}

void KoraVisionDisplay::RenumberVisionProperties()
{
    int number = 1;
    for (const auto& property : visionProperties) {
        property->SetVisionName(RenumberVisionName(property->GetVisionName(), number++));
    }
}

KoraVisionProperty* KoraVisionDisplay::GetVisionProperty(int index) const
{
    if (index < 0 || index >= static_cast<int>(visionProperties.size())) {
        return nullptr;
    }
    return visionProperties[static_cast<std::size_t>(index)].get();
}

void KoraVisionDisplay::SetKoraVisionPropertyExpend(KoraVisionProperty* selected)
{
    for (const auto& property : visionProperties) {
        if (property.get() == selected) {
            property->expand();
        } else {
            property->collapse();
        }
    }
}

int KoraVisionDisplay::GetCurrentVideosWidgetState() const
{
    if (!IsInitialized()) {
        return VideosWidget::List;
    }
    return associatedWidget->GetTotalWidget()->GetVideosWidget()->CurrentVideosWidgetState();
}

void KoraVisionDisplay::SetPopButtonsVisible()
{
    if (!IsInitialized()) {
        return;
    }
    associatedWidget->GetTotalWidget()->GetVideosWidget()->SetPopButtonsVisible(GetCurrentVideosWidgetState() ==
                                                                                 VideosWidget::List);
}

void KoraVisionDisplay::EmbedPanels()
{
    if (!IsInitialized()) {
        return;
    }
    associatedWidget->GetTotalWidget()->GetVideosWidget()->EmbedPanels();
}

void KoraVisionDisplay::SetPopupPanelsVisible(bool visible)
{
    if (!IsInitialized()) {
        return;
    }
    associatedWidget->GetTotalWidget()->GetVideosWidget()->SetPopupPanelsVisible(visible);
}

void KoraVisionDisplay::RecordGeometryOfState()
{
    rviz::PanelDockWidget* panel = getAssociatedWidgetPanel();
    if (panel == nullptr || !panel->isWindow() || !associatedWidget->isVisible() ||
        GetCurrentVideosWidgetState() != VideosWidget::List) {
        return;
    }
    geometryOfState[VideosWidget::List] = panel->geometry();
}

void KoraVisionDisplay::RestoreGeometryOfState()
{
    rviz::PanelDockWidget* panel = getAssociatedWidgetPanel();
    if (panel == nullptr || !panel->isWindow() || !associatedWidget->isVisible()) {
        return;
    }
    const QRect geometry = geometryOfState.value(GetCurrentVideosWidgetState());
    if (geometry.isValid()) {
        panel->setGeometry(geometry);
    }
}

void KoraVisionDisplay::OnSendMinimizeScreenSwitch()
{
    RecordGeometryOfState();
    if (associatedWidget->isHidden()) {
        associatedWidget->show();
        RestoreGeometryOfState();
    } else {
        associatedWidget->hide();
    }
}

void KoraVisionDisplay::OnSendFullScreenSwitch()
{
    RecordGeometryOfState();
    associatedWidget->show();
    const int state = GetCurrentVideosWidgetState();
    associatedWidget->GetTotalWidget()->SwitchDisplayMode(state == VideosWidget::List ? VideosWidget::FullScreen
                                                                                      : VideosWidget::List);
    if (titleBar != nullptr) {
        titleBar->UpdateMinimizeIcon();
    }
    RestoreGeometryOfState();
    if (state == VideosWidget::List) {
        EmbedPanels();
    }
    SetPopButtonsVisible();
}

void KoraVisionDisplay::OnSendCloseButtonClicked()
{
    if (rviz::PanelDockWidget* panel = getAssociatedWidgetPanel()) {
        panel->close();
    }
}

void KoraVisionDisplay::SetFloating()
{
    rviz::PanelDockWidget* panel = getAssociatedWidgetPanel();
    if (panel == nullptr) {
        return;
    }
    RecordGeometryOfState();
    panel->setFloating(!panel->isFloating());
    RestoreGeometryOfState();
    if (GetCurrentVideosWidgetState() == VideosWidget::FullScreen) {
        EmbedPanels();
    }
    SetPopButtonsVisible();
}

void KoraVisionDisplay::setName(const QString& name)
{
    if (!IsInitialized()) {
        return;
    }
    rviz::Property::setName(name);
    if (rviz::PanelDockWidget* panel = getAssociatedWidgetPanel()) {
        panel->setWindowTitle(name);
        panel->setObjectName(name);
    }
    if (titleBar != nullptr) {
        titleBar->SetWindowTitle(name);
    }
}

void KoraVisionDisplay::setTopic(const QString& topic, const QString& datatype)
{
    if (!IsInitialized()) {
        return;
    }
    associatedWidget->AddVideoWidget();
    for (const auto& property : visionProperties) {
        property->SetTopic(topic, datatype);
    }
}

void KoraVisionDisplay::update(float /*wallDt*/, float /*rosDt*/)
{
    if (!IsInitialized()) {
        return;
    }
    for (const auto& property : visionProperties) {
        property->Update();
    }
}

void KoraVisionDisplay::reset()
{
    for (const auto& property : visionProperties) {
        property->ClearImageDisplay();
    }
    rviz::Display::reset();
}

void KoraVisionDisplay::ResetPluginDisplay()
{
    rviz::Display::reset();
}

void KoraVisionDisplay::RenderPluginContext() const
{
    if (context_ != nullptr) {
        context_->queueRender();
    }
}

void KoraVisionDisplay::onEnable()
{
    for (const auto& property : visionProperties) {
        property->OnEnable();
    }
    SetPopupPanelsVisible(true);
}

void KoraVisionDisplay::onDisable()
{
    for (const auto& property : visionProperties) {
        property->OnDisable();
    }
    SetPopupPanelsVisible(false);
}

void KoraVisionDisplay::save(rviz::Config config) const
{
    const QVariant value = getValue();
    if (value.isValid()) {
        config.mapSetValue("Value", value);
    }
    for (int i = 0; i < numChildren(); ++i) {
        rviz::Property* child = childAt(i);
        if (child == nullptr || !child->shouldBeSaved()) {
            continue;
        }
        const auto* vision = qobject_cast<const KoraVisionProperty*>(child);
        child->save(config.mapMakeChild(vision != nullptr ? vision->GetVisionName() : child->getName()));
    }
    config.mapSetValue("Class", getClassId());
    config.mapSetValue("Name", getName());
    config.mapSetValue("Enabled", isEnabled());
}

void KoraVisionDisplay::load(const rviz::Config& config)
{
    QStringList itemKeys;
    for (rviz::Config::MapIterator it = config.mapIterator(); it.isValid(); it.advance()) {
        if (it.currentKey().startsWith("(") && associatedWidget != nullptr && associatedWidget->AddVideoWidget()) {
            itemKeys << it.currentKey();
        }
    }
    std::stable_sort(itemKeys.begin(), itemKeys.end(), CompareLoadConfigKey);
    for (int i = 0; i < itemKeys.size() && i < static_cast<int>(visionProperties.size()); ++i) {
        visionProperties[static_cast<std::size_t>(i)]->SetVisionName(itemKeys.at(i));
    }
    // Values of the wrong type, not finite or out of range fall back to what a new item has.
    const ConfigLoadGuard guard(this);
    rviz::Display::load(config);
    guard.RestoreInvalid(config);
    setName(getName());
}

QVariant KoraVisionDisplay::getViewData(int column, int role) const
{
    switch (role) {
    case Qt::BackgroundRole:
        return GetBackgroundColor();
    case Qt::DecorationRole:
        if (column == 0) {
            return GetDisplayDecoration();
        }
        break;
    case Qt::FontRole:
        return GetDisplayFont();
    case Qt::ForegroundRole:
        if ((getViewFlags(column) & Qt::ItemIsEnabled) != 0) {
            return GetForegroundColor();
        }
        break;
    default:
        break;
    }
    return rviz::Display::getViewData(column, role);
}

QColor KoraVisionDisplay::GetBackgroundColor() const
{
    return QColor(Qt::white);
}

int KoraVisionDisplay::GetWorstGlobalLevel() const
{
    int worst = rviz::StatusProperty::Ok;
    for (const auto& property : visionProperties) {
        const int level = property->GetGlobalStatusLevel();
        if (level == rviz::StatusProperty::Error) {
            return level;
        }
        worst = std::max(worst, level);
    }
    return worst;
}

QColor KoraVisionDisplay::GetForegroundColor() const
{
    if (!isEnabled()) {
        return QColor(Qt::black);
    }
    const int level = GetWorstGlobalLevel();
    return level == rviz::StatusProperty::Ok ? okForeground
                                             : rviz::StatusProperty::statusColor(
                                                   static_cast<rviz::StatusProperty::Level>(level));
}

QFont KoraVisionDisplay::GetDisplayFont() const
{
    QFont font;
    if (isEnabled()) {
        font.setWeight(enabledFontWeight);
    }
    return font;
}

QVariant KoraVisionDisplay::GetDisplayDecoration() const
{
    const int level = isEnabled() ? GetWorstGlobalLevel() : static_cast<int>(rviz::StatusProperty::Ok);
    return level == rviz::StatusProperty::Ok ? QVariant(getIcon()) : QVariant(StatusLevelIcon(level));
}

} // namespace rviz_plugin

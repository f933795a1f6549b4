#ifndef RVIZ_PLUGIN_RADAR_DISPLAY_H
#define RVIZ_PLUGIN_RADAR_DISPLAY_H

#include "radar_info_property.h"
#include "radar_info_widget.h"
#include "radar_visual.h"

#include "foundation/logger_stream.h"
#include "foundation/memory_exception.h"
#include "scene_3d/display_status_sink.h"
#include "scene_3d/receive_monitor.h"
#include "scene_3d_logic/status_sink.h"

#ifndef Q_MOC_RUN
#include <rviz/display_context.h>
#include <rviz/message_filter_display.h>
#include <rviz/panel_dock_widget.h>
#include <rviz/properties/bool_property.h>
#include <rviz/properties/ros_topic_property.h>
#include <rviz/window_manager_interface.h>
#endif

#include <memory>
#include <new>
#include <string>
#include <vector>

namespace rviz_plugin {

// What the two radar displays share: the settings and the visual, the last message (redrawn when a setting
// changes), the once-a-second receive check, the field statuses of the visual, the "Detail Panel" and "Info"
// properties and the detail panel docked at the bottom. SettingsType has detailPanelShown, infoShown, textColor,
// textScale and infoFields; VisualType takes the settings, Init and SetMessage.
template <typename T, typename SettingsType, typename VisualType>
class RadarDisplay : public rviz::MessageFilterDisplay<T> {
public:
    // The panel's place in a main window of the given rectangle.
    static QRect DefaultPanelGeometry(const QRect& rect)
    {
        return QRect(QPoint(rect.left() + 100, rect.bottom() - 350), QPoint(rect.left() + 1749, rect.bottom() - 101));
    }

    RadarInfoWidget* InfoWidget() const { return infoWidget; }
    rviz::PanelDockWidget* PanelDock() const { return panelDock; }
    const SettingsType& Settings() const { return settings; }
    VisualType* Visual() const { return visual.get(); }

    ~RadarDisplay() override
    {
        visual.reset();
        DestroyDetailPanel();
    }

protected:
    // name: the display's name without a topic, and the detail pane's.
    RadarDisplay(std::string logModule, QString name) : name(std::move(name)), logModule(std::move(logModule)) {}

    // The visual made and the detail pane docked; the subclass adds its properties after.
    void onInitialize() override
    {
        std::set_new_handler(Orsa::HandleMemoryException);
        rviz::MessageFilterDisplay<T>::onInitialize();
        InitQueueSizeProperty(this->queue_size_property_, this->unreliable_property_);
        receiveMonitor = new ReceiveMonitor(this, "No Radar data was received in the last 1 second.",
                                            [this]() { return this->messages_received_; });
        visual = std::make_unique<VisualType>(settings);
        ConnectVisual(visual.get());
        visual->Init(this->context_, this->scene_node_);
        CreateDetailPanel();
    }

    void reset() override
    {
        rviz::MessageFilterDisplay<T>::reset();
        lastMessage.reset();
        if (receiveMonitor != nullptr) {
            receiveMonitor->Reset();
        }
        if (visual) {
            visual->Reset();
        }
    }

    void updateTopic() override
    {
        rviz::MessageFilterDisplay<T>::updateTopic();
        SetName();
    }

    // "Detail Panel" and "Info" with its fields, the last two properties of a radar display.
    void AddPanelAndInfoProperties(const QString& panelDescription, const std::vector<RadarInfoProperty::Field>& fields)
    {
        detailPanelProperty = new rviz::BoolProperty("Detail Panel", settings.detailPanelShown, panelDescription, this);
        QObject::connect(detailPanelProperty, &rviz::Property::changed, this, [this]() {
            settings.detailPanelShown = detailPanelProperty->getBool();
            UpdatePane();
            Redraw();
        });
        infoProperty = new RadarInfoProperty(settings.infoShown, settings.textColor, settings.textScale,
                                             "Indicates whether to display the values of selected fields in the 3D "
                                             "area. A maximum of three fields can be selected at a time. For more "
                                             "information, see the Detail Panel window.",
                                             this);
        infoProperty->AddFields(fields, settings.infoFields);
        QObject::connect(infoProperty, &RadarInfoProperty::InfoChanged, this, [this]() {
            settings.infoShown = infoProperty->getBool();
            settings.textColor = infoProperty->TextColor();
            settings.textScale = infoProperty->TextScale();
            settings.infoFields = infoProperty->TickedFields();
            Redraw();
        });
    }

    void SetName()
    {
        const QString shown = DisplayNameWithTopic(name, this->topic_property_->getTopic());
        this->setName(shown);
        if (panelDock != nullptr) {
            panelDock->setWindowTitle(shown);
        }
    }

    void processMessage(const typename T::ConstPtr& message) override
    {
        if (!this->isEnabled()) {
            return;
        }
        lastMessage = message;
        try {
            ShowMsgInPanel(message);
            ShowMsgInVisual(message);
        } catch (const std::exception& error) {
            Orsa::LoggerStream(logModule, Orsa::LogLevel::Error) << "Failed to draw a radar message: " << error.what();
        }
    }

    void ShowMsgInPanel(const typename T::ConstPtr& message)
    {
        if (settings.detailPanelShown && infoWidget != nullptr) {
            infoWidget->ShowMsg(message);
        }
    }

    void ShowMsgInVisual(const typename T::ConstPtr& message) { visual->SetMessage(message); }

    void AddStatus(rviz::StatusProperty::Level level, const QString& name, const QString& text)
    {
        this->setStatus(level, name, text);
    }

    void DelStatus(const QString& name) { this->deleteStatus(name); }

    // The visual's field statuses go to the display's tree.
    void ConnectVisual(RadarVisual* visual)
    {
        QObject::connect(visual, &RadarVisual::AddStatus, this,
                         [this](rviz::StatusProperty::Level level, const QString& name, const QString& text) {
                             AddStatus(level, name, text);
                         });
        QObject::connect(visual, &RadarVisual::DelStatus, this, [this](const QString& name) { DelStatus(name); });
    }

    // Draws the last message again, after a setting changed.
    void Redraw()
    {
        if (lastMessage) {
            processMessage(lastMessage);
            this->context_->queueRender();
        }
    }

    // The detail panel: a pane at the bottom of the main window, hidden until asked for; closing it unticks
    // "Detail Panel".
    void CreateDetailPanel()
    {
        infoWidget = new RadarInfoWidget();
        InitializeTable(*infoWidget);
        rviz::WindowManagerInterface* windows = this->context_->getWindowManager();
        if (windows == nullptr) {
            return;  // no main window: the table stays off screen
        }
        panelDock = windows->addPane(name, infoWidget, Qt::BottomDockWidgetArea, false);
        if (windows->getParentWindow() != nullptr) {
            panelDock->setGeometry(DefaultPanelGeometry(windows->getParentWindow()->geometry()));
        }
        panelDock->setIcon(this->getIcon());
        panelDock->hide();
        QObject::connect(panelDock, &rviz::PanelDockWidget::closed, this, [this]() { OnRadarPanelClosed(); });
    }

    // The table's columns and rows for the message type.
    virtual void InitializeTable(RadarInfoWidget& table) = 0;

    void OnRadarPanelClosed()
    {
        if (detailPanelProperty != nullptr) {
            detailPanelProperty->setBool(false);
        }
    }

    void DestroyDetailPanel()
    {
        if (panelDock != nullptr) {
            delete panelDock;  // owns the table
        } else {
            delete infoWidget;
        }
        panelDock = nullptr;
        infoWidget = nullptr;
    }

    // Shows the pane while the panel is asked for and the display is on.
    void UpdatePane()
    {
        if (panelDock != nullptr) {
            panelDock->setVisible(settings.detailPanelShown && this->isEnabled());
        }
    }

    void onEnable() override
    {
        rviz::MessageFilterDisplay<T>::onEnable();
        UpdatePane();
        Redraw();
    }

    void onDisable() override
    {
        rviz::MessageFilterDisplay<T>::onDisable();
        if (infoWidget != nullptr) {
            infoWidget->Clear();
        }
        UpdatePane();
    }

    SettingsType settings;
    std::unique_ptr<VisualType> visual;
    typename T::ConstPtr lastMessage;
    RadarInfoWidget* infoWidget = nullptr;
    rviz::PanelDockWidget* panelDock = nullptr;
    rviz::BoolProperty* detailPanelProperty = nullptr;
    RadarInfoProperty* infoProperty = nullptr;

private:
    QString name;
    std::string logModule;
    ReceiveMonitor* receiveMonitor = nullptr;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_RADAR_DISPLAY_H
#define RVIZ_PLUGIN_RADAR_DISPLAY_H

#include "radar_info_widget.h"
#include "radar_visual.h"

#include "foundation/logger_stream.h"
#include "foundation/memory_exception.h"
#include "scene_3d/display_status_sink.h"
#include "scene_3d_logic/status_sink.h"

#ifndef Q_MOC_RUN
#include <rviz/display_context.h>
#include <rviz/message_filter_display.h>
#include <rviz/panel_dock_widget.h>
#include <rviz/properties/ros_topic_property.h>
#include <rviz/window_manager_interface.h>
#endif

#include <QTimer>

#include <new>
#include <string>

namespace rviz_plugin {

// What the two radar displays share: the last message (redrawn when a setting changes), the once-a-second
// receive check, the field statuses of the visual, and the detail panel docked at the bottom.
template <typename T>
class RadarDisplay : public rviz::MessageFilterDisplay<T> {
public:
    // The panel's place in a main window of the given rectangle.
    static QRect DefaultPanelGeometry(const QRect& rect)
    {
        return QRect(QPoint(rect.left() + 100, rect.bottom() - 350), QPoint(rect.left() + 1749, rect.bottom() - 101));
    }

    RadarInfoWidget* InfoWidget() const { return infoWidget; }
    rviz::PanelDockWidget* PanelDock() const { return panelDock; }

protected:
    explicit RadarDisplay(std::string logModule) : logModule(std::move(logModule)) {}

    void onInitialize() override
    {
        std::set_new_handler(Orsa::HandleMemoryException);
        rviz::MessageFilterDisplay<T>::onInitialize();
        InitQueueSizeProperty(this->queue_size_property_, this->unreliable_property_);
        QObject::connect(&receiveTimer, &QTimer::timeout, this, [this]() { OnDataRecvStatusUpdateTimerTimeout(); });
        receiveTimer.start(1000);
    }

    void reset() override
    {
        rviz::MessageFilterDisplay<T>::reset();
        lastMessage.reset();
        watchdog.Reset();
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

    virtual void ShowMsgInPanel(const typename T::ConstPtr& message) = 0;
    virtual void ShowMsgInVisual(const typename T::ConstPtr& message) = 0;
    virtual bool DetailPanelShown() const = 0;

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

    void OnDataRecvStatusUpdateTimerTimeout()
    {
        if (watchdog.NothingSince(this->messages_received_)) {
            this->setStatus(rviz::StatusProperty::Warn, "Data receiving failure",
                            "No Radar data was received in the last 1 second.");
        } else {
            this->deleteStatus("Data receiving failure");
        }
    }

    // Draws the last message again, after a setting changed.
    void Redraw()
    {
        if (lastMessage) {
            processMessage(lastMessage);
            this->context_->queueRender();
        }
    }

    // The detail panel: a pane at the bottom of the main window, hidden until asked for. onClosed runs
    // when the user closes it.
    template <typename OnClosed>
    void CreateDetailPanel(const QString& name, OnClosed onClosed)
    {
        infoWidget = new RadarInfoWidget();
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
        QObject::connect(panelDock, &rviz::PanelDockWidget::closed, this, onClosed);
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
            panelDock->setVisible(DetailPanelShown() && this->isEnabled());
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

    typename T::ConstPtr lastMessage;
    RadarInfoWidget* infoWidget = nullptr;
    rviz::PanelDockWidget* panelDock = nullptr;

private:
    std::string logModule;
    QTimer receiveTimer;
    ReceiveWatchdog watchdog;
};

} // namespace rviz_plugin

#endif

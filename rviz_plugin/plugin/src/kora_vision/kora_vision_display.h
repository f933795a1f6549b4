#ifndef RVIZ_PLUGIN_KORA_VISION_DISPLAY_H
#define RVIZ_PLUGIN_KORA_VISION_DISPLAY_H

#ifndef Q_MOC_RUN
#include <rviz/display.h>
#endif

#include <QMap>
#include <QRect>

#include <memory>
#include <vector>

class TitleBarBase;

namespace rviz {
class PanelDockWidget;
}

namespace rviz_plugin {

class AssociatedWidget;
class KoraVisionProperty;
class VideoControlWidget;

// Video wall display: a dock panel with up to 30 video items, each with its own subtree.
class KoraVisionDisplay : public rviz::Display {
    Q_OBJECT
public:
    KoraVisionDisplay();
    ~KoraVisionDisplay() override;

    void setName(const QString& name) override;
    QVariant getViewData(int column, int role) const override;
    void load(const rviz::Config& config) override;
    void save(rviz::Config config) const override;
    void setTopic(const QString& topic, const QString& datatype) override;
    void update(float wallDt, float rosDt) override;
    void reset() override;

    rviz::PanelDockWidget* CreatePopupPanel(const QString& name, QWidget* contents);
    void SetKoraVisionPropertyExpend(KoraVisionProperty* selected);
    int GetCurrentVideosWidgetState() const;
    void SetPopButtonsVisible();
    void EmbedPanels();
    void RecordGeometryOfState();
    void RestoreGeometryOfState();
    int GetVideoCount() const { return static_cast<int>(visionProperties.size()); }
    KoraVisionProperty* GetVisionProperty(int index) const;

public Q_SLOTS:
    void OnSendGeneratedNewItemWidget(int index, VideoControlWidget* item);
    void OnSendDeleteWidget(int index);
    void OnSendMinimizeScreenSwitch();
    void OnSendFullScreenSwitch();
    void OnSendCloseButtonClicked();
    void SetFloating();
    void ResetPluginDisplay();
    void RenderPluginContext() const;

protected:
    void onInitialize() override;
    void onEnable() override;
    void onDisable() override;

private:
    void RenumberVisionProperties();
    QColor GetBackgroundColor() const;
    QColor GetForegroundColor() const;
    // The highest level of all items' global statuses; Error ends the search.
    int GetWorstGlobalLevel() const;
    QFont GetDisplayFont() const;
    QVariant GetDisplayDecoration() const;
    void SetPopupPanelsVisible(bool visible);
    bool IsInitialized() const { return associatedWidget != nullptr; }

    TitleBarBase* titleBar = nullptr;
    AssociatedWidget* associatedWidget = nullptr;
    std::vector<std::unique_ptr<KoraVisionProperty>> visionProperties;
    QMap<int, QRect> geometryOfState;
};

} // namespace rviz_plugin

#endif

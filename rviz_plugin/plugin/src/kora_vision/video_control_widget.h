#ifndef RVIZ_PLUGIN_VIDEO_CONTROL_WIDGET_H
#define RVIZ_PLUGIN_VIDEO_CONTROL_WIDGET_H

#include <QRect>
#include <QWidget>

#include <functional>

class QLabel;
class QVBoxLayout;
class IconButton;

namespace rviz {
class PanelDockWidget;
}

namespace rviz_plugin {

class NonInteractiveRenderPanel;
class TopicCombobox;

using CreatePopupPanelCallback = std::function<rviz::PanelDockWidget*(const QString&, QWidget*)>;

// One video item of the wall: topic chooser, pop-out and delete buttons, and its render panel.
// Popped out, the render panel moves into a floating dock and a picture holds its place.
class VideoControlWidget : public QWidget {
    Q_OBJECT
public:
    explicit VideoControlWidget(QWidget* parent = nullptr);
    ~VideoControlWidget() override;

    void Init(CreatePopupPanelCallback callback);
    TopicCombobox* GetTopicCombobox() const { return topicCombobox; }
    NonInteractiveRenderPanel* GetRenderPanelWidget() const { return renderPanel; }
    void SetComboboxCurrentText(const QString& text);
    // The camera's custom name beside the topic (elided), and the popped-out window's title.
    void SetCameraAlias(const QString& alias);
    QString GetCameraAlias() const { return cameraAlias; }

    void PopupPanel();
    void EmbedPanel();
    bool IsPoppedOut() const { return popupPanel != nullptr; }
    void SetPopupPanelVisible(bool visible);
    bool IsPopupPanelVisible() const;
    void SetPopupPanelWindowTitle(QString title);
    void SetPopupButtonVisible(bool visible);
    void AddVideoWidget(QWidget* widget);
    // Delete button: returns a popped-out video and asks the wall to remove this item.
    void SubItem();

Q_SIGNALS:
    void RemoveItem() const;
    void TopicComboboxTextChanged(const QString& text);
    void MousePressSignal() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    // Reads the topic's custom name from the alias file.
    void UpdateCameraAlias();
    QString TitleText() const;

    QLabel* topicLabel = nullptr;
    QLabel* aliasLabel = nullptr;
    QString cameraAlias;
    TopicCombobox* topicCombobox = nullptr;
    IconButton* popBt = nullptr;
    IconButton* deleteBt = nullptr;
    QLabel* pictureLabel = nullptr;
    QVBoxLayout* videoLayout = nullptr;
    NonInteractiveRenderPanel* renderPanel = nullptr;
    CreatePopupPanelCallback createPopupPanel;
    rviz::PanelDockWidget* popupPanel = nullptr;
    QWidget* popupContents = nullptr;
    QRect popupGeometry;
};

} // namespace rviz_plugin

#endif

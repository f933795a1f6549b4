#ifndef RVIZ_PLUGIN_MSG_DATA_PANEL_H
#define RVIZ_PLUGIN_MSG_DATA_PANEL_H

#include "msg_view_models/dock_layout.h"
#include "msg_viewer_panel/msg_record.h"
#include "msg_viewer_panel/msg_record_struct.h"

#include <rviz/panel.h>

#include <QList>
#include <QMap>
#include <QPoint>
#include <QRect>
#include <QVector>

#include <map>

#include <memory>

namespace rviz {
class PanelDockWidget;
}

namespace rviz_plugin {

class EditTitle;
class MsgDataConfig;
class MsgDefinitionWidget;
class MsgViewerPanel;
class StructuredDataView;

// The message viewer: a settings column in rviz, and a floating dock for each user panel (a table of
// one topic's array, or key-value grids of scalar fields of several topics). Docks dropped on the
// left or bottom part of the main window's central area snap into tiled slots.
class MsgDataPanel : public rviz::Panel {
    Q_OBJECT
public:
    explicit MsgDataPanel(QWidget* parent = nullptr);
    ~MsgDataPanel() override;

    void onInitialize() override;
    void save(rviz::Config config) const override;
    void load(const rviz::Config& config) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    void UpdateToDisplayWindow();
    void ShowDisplayPanel(int index, const QString& name);
    void DrawRecordMsgView(int index, const QString& name);
    void DisplayWindowsByLoadedData(const MsgRecordStruct::PanelData* panel);
    void DrawRecordMsgViewByLoadedData(const MsgRecordStruct::PanelData* panel, int index);
    void RemoveRecord(int index);
    void SlotUpdateRecord(int index, bool checked);
    void DisplayPanelVisibleChanged(int index, bool visible);
    void PanelVisibilityChanged(int index, bool visible);
    void SlotChangeBackgroundColor(const QString& color);
    void SetAlignment(const Qt::Alignment& alignment);
    void SlotConfigChanged();
    int GetPanelDockIndex(const rviz::PanelDockWidget* dock) const;

    // What the saved configuration and the tests read.
    int GetPanelCount() const { return records.size(); }
    QString GetBackgroundColor() const { return backgroundColor; }
    Qt::Alignment GetAlignment() const { return alignment; }
    MsgRecord* GetRecord(int index) const { return records.value(index); }
    // The panel as it was read from the configuration, until it is edited; null for a new panel.
    const MsgRecordStruct::PanelData* GetLoadedPanel(int index) const;
    StructuredDataView* GetView(int index) const { return views.value(index); }
    rviz::PanelDockWidget* GetDock(int index) const { return docks.value(index); }
    EditTitle* GetEditTitle(int index) const { return editTitles.value(index); }
    MsgViewerPanel* GetViewerPanel() const { return viewerPanel; }
    MsgDefinitionWidget* GetDefinitionWidget() const { return definitionWidget; }
    const DockLayout& GetDockLayout() const { return dockLayout; }
    // The docks in the slots of an area, in slot order.
    QVector<rviz::PanelDockWidget*> GetAreaDocks(DockAreaIndex area) const;
    // As a release of a dragged dock with the cursor at a global point.
    void ReleasePanelDockAt(rviz::PanelDockWidget* dock, const QPoint& pressPoint, const QPoint& releasePoint);
    void FillWindowDockVector();

private:
    struct WindowInfo {
        QRect rect;
        rviz::PanelDockWidget* dock = nullptr;
    };
    struct DockArea {
        QPoint topLeft;
        QPoint bottomRight;
        QList<WindowInfo> windows;
    };

    void CreateDefinitionWidget();
    void InitDisplayPanel();
    void CreateMsgViewerPanel();
    StructuredDataView* InitStructuredDataView(MsgRecord* record);
    rviz::PanelDockWidget* CreatePanelDock(const QString& name, StructuredDataView* view);
    void InitEditTitle(MsgRecord* record, rviz::PanelDockWidget* dock);
    void InitPanel(rviz::PanelDockWidget* dock);
    void InitPanelDockGeometry(int index, rviz::PanelDockWidget* dock, bool useViewHeight);
    void SetMsgViewerDisPlayBackgroundColor(const QString& color);
    void SetPanelDockBgColor(int index, const QString& color);
    void SetPanelDockAlignment(int index, Qt::Alignment value);
    void AddPanelDockWidget(rviz::PanelDockWidget* dock);
    void RemovePanelDockWidget(rviz::PanelDockWidget* dock);
    void RemoveDockWindowRecord(rviz::PanelDockWidget* dock);
    void SetPanelDockGeometry(rviz::PanelDockWidget* dock, const QPoint& point, const QSize& size);
    void AdjustPanelDockLayout(rviz::PanelDockWidget* dock);
    void AdjustDockWindowSize();
    void UpdateAreaList(DockAreaIndex area);
    int AreaAt(const QPoint& global) const;
    void PushDockToList(DockAreaIndex area, rviz::PanelDockWidget* dock, const QPoint& cursor);
    void EventFilterPanelDock(rviz::PanelDockWidget* dock, QEvent* event);
    QWidget* CentralWidget() const;
    QSize CentralSize() const;
    QPoint CentralTopLeft() const;

    MsgRecord msgRecord;
    MsgDataConfig* msgDataConfig = nullptr;
    QString backgroundColor = "white";
    Qt::Alignment alignment = Qt::AlignLeft;
    QVector<MsgRecord*> records;
    std::map<const MsgRecord*, MsgRecordStruct::PanelData> loadedPanels;
    QVector<StructuredDataView*> views;
    QVector<rviz::PanelDockWidget*> docks;
    QVector<EditTitle*> editTitles;
    QMap<int, rviz::PanelDockWidget*> cascadeSlots;
    DockLayout dockLayout;
    QVector<DockArea> dockAreas;
    int movingArea = -1;
    rviz::PanelDockWidget* movingDock = nullptr;
    bool doubleClicked = false;
    bool isMoving = false;
    bool canAdjust = true;
    QPoint pressPoint;
    QPoint releasePoint;
    rviz::PanelDockWidget* pressedDock = nullptr;
    rviz::PanelDockWidget* resizedDock = nullptr;
    MsgViewerPanel* viewerPanel = nullptr;
    MsgDefinitionWidget* definitionWidget = nullptr;
    QWidget* mainWindow = nullptr;
};

} // namespace rviz_plugin

#endif

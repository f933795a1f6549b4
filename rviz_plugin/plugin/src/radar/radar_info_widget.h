#ifndef RVIZ_PLUGIN_RADAR_INFO_WIDGET_H
#define RVIZ_PLUGIN_RADAR_INFO_WIDGET_H

#include <custom/RadarDetectArray.h>
#include <custom/RadarTrackArray.h>

#include <QWidget>

#include <vector>

class QStandardItemModel;
class QTableView;

namespace rviz_plugin {

// The detail panel of a radar display: every point or track of the last message in a table, bad values
// marked red. The rows are fixed (250 detections or 100 tracks); rows past the message are empty.
class RadarInfoWidget : public QWidget {
    Q_OBJECT
public:
    explicit RadarInfoWidget(QWidget* parent = nullptr);

    void InitializeForDetect();
    void InitializeForTrack();
    void ShowMsg(const custom::RadarDetectArray::ConstPtr& message);
    void ShowMsg(const custom::RadarTrackArray::ConstPtr& message);
    // Empties every cell.
    void Clear();

    QStandardItemModel* Model() const { return model; }
    QTableView* View() const { return view; }

private:
    void Initialize(const QStringList& titles, int rows);
    // Writes the rows of the first items and empties the others.
    void FillRows(const std::vector<std::vector<QString>>& rows);

    QTableView* view;
    QStandardItemModel* model;
};

} // namespace rviz_plugin

#endif

#include "radar_info_widget.h"

#include "radar_item_delegate.h"

#include "foundation/set_qss.h"
#include "scene_3d_logic/radar_settings.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace rviz_plugin {

namespace {
constexpr int columnWidth = 100;
constexpr int fontPixels = 12;

QString Number(float value)
{
    return QString::number(static_cast<double>(value), 'g', 6);
}

QString Number(uint8_t value)
{
    return QString::number(value);
}
} // namespace

RadarInfoWidget::RadarInfoWidget(QWidget* parent)
    : QWidget(parent), view(new QTableView(this)), model(new QStandardItemModel(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
    view->setModel(model);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setSelectionMode(QAbstractItemView::NoSelection);
    view->setFocusPolicy(Qt::NoFocus);
    QFont font = view->font();
    font.setPixelSize(fontPixels);
    view->setFont(font);
    SetQss().SetStyle(view, ":/qss/table_view.qss");
}

void RadarInfoWidget::Initialize(const QStringList& titles, int rows)
{
    model->clear();
    model->setColumnCount(titles.size());
    model->setRowCount(rows);
    model->setHorizontalHeaderLabels(titles);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < titles.size(); ++column) {
            model->setItem(row, column, new QStandardItem());
        }
    }
    view->horizontalHeader()->setDefaultSectionSize(columnWidth);
}

void RadarInfoWidget::InitializeForDetect()
{
    Initialize({"id", "x", "y", "vx", "vy", "rcs", "snr", "exist", "false", "mov", "invalidState", "ambiguity"},
               static_cast<int>(RadarDetectSettings::maxPoints));
    view->setItemDelegate(new RadarDetectItemDelegate(view));
}

void RadarInfoWidget::InitializeForTrack()
{
    Initialize({"id", "lifetime", "x", "y", "vx", "vy", "ax", "ay", "rcs", "snr", "orientation", "length", "width",
                "height", "underpass", "overpass", "exist", "mov", "trackState", "trackType"},
               static_cast<int>(RadarTrackSettings::maxTracks));
    view->setItemDelegate(new RadarTrackItemDelegate(view));
}

void RadarInfoWidget::FillRows(const std::vector<std::vector<QString>>& rows)
{
    const int rowCount = model->rowCount();
    const int columnCount = model->columnCount();
    for (int row = 0; row < rowCount; ++row) {
        for (int column = 0; column < columnCount; ++column) {
            QStandardItem* cell = model->item(row, column);
            const bool filled = row < static_cast<int>(rows.size()) && column < static_cast<int>(rows[row].size());
            const QString text = filled ? rows[row][column] : QString();
            if (cell->text() != text) {
                cell->setText(text);
            }
        }
    }
}

void RadarInfoWidget::ShowMsg(const custom::RadarDetectArray::ConstPtr& message)
{
    std::vector<std::vector<QString>> rows;
    const std::size_t count = std::min<std::size_t>(message->detectList.size(), RadarDetectSettings::maxPoints);
    for (std::size_t index = 0; index < count; ++index) {
        const custom::RadarDetect& p = message->detectList[index];
        rows.push_back({Number(p.id), Number(p.x), Number(p.y), Number(p.vx), Number(p.vy), Number(p.rcs),
                        Number(p.snr), Number(p.existProbability), Number(p.falseProbability), Number(p.movProperty),
                        Number(p.invalidState), Number(p.ambiguity)});
    }
    FillRows(rows);
}

void RadarInfoWidget::ShowMsg(const custom::RadarTrackArray::ConstPtr& message)
{
    std::vector<std::vector<QString>> rows;
    const std::size_t count = std::min<std::size_t>(message->trackList.size(), RadarTrackSettings::maxTracks);
    for (std::size_t index = 0; index < count; ++index) {
        const custom::RadarTrack& t = message->trackList[index];
        rows.push_back({Number(t.id), Number(t.lifetime), Number(t.x), Number(t.y), Number(t.vx), Number(t.vy),
                        Number(t.ax), Number(t.ay), Number(t.rcs), Number(t.snr), Number(t.orientation),
                        Number(t.length), Number(t.width), Number(t.height), Number(t.underpassProbability),
                        Number(t.overpassProbability), Number(t.existProbability), Number(t.movProperty),
                        Number(t.trackState), Number(t.trackType)});
    }
    FillRows(rows);
}

void RadarInfoWidget::Clear()
{
    FillRows({});
}

} // namespace rviz_plugin

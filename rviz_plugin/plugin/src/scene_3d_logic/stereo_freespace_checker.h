#ifndef RVIZ_PLUGIN_STEREO_FREESPACE_CHECKER_H
#define RVIZ_PLUGIN_STEREO_FREESPACE_CHECKER_H

#include "status_sink.h"

#include <orsa_msgs/StereoFreespace.h>

#include <QString>

#include <array>
#include <map>
#include <vector>

namespace rviz_plugin {

// Checks of a freespace grid: a bad description drops the message (errors), a bad cell only the cell
// (warnings). Every check runs, so that all faults show together.
class StereoFreespaceChecker {
public:
    static constexpr double coordinateLimit = 50000;
    static constexpr std::size_t maxCells = 500000;
    static constexpr double maxIndexCount = 1000;
    static constexpr float probabilityTolerance = 1.1920929e-7F;

    explicit StereoFreespaceChecker(StatusSink& sink);

    // True when the message must be dropped.
    bool IsInvalidStereoFreespaceData(const orsa_msgs::StereoFreespace& message);
    // True when the cell must be skipped.
    bool IsInvalidCellData(const orsa_msgs::StereoFreespaceCell& cell, long long maxXIndex, long long maxYIndex);
    void InitCellDataStatusRecord();
    // Deletes the warnings of the cell checks no cell of this message failed.
    void DeleteCellDataWarn();

private:
    bool Raise(bool failed, const QString& name, const QString& text);

    StatusSink& sink;
    std::map<QString, bool> cellStatusRaised;
};

// One tile of the drawn grid, in the message's frame.
struct FreespaceTile {
    float x;
    float y;
};

// The valid cells of a grid as tiles, one list per class (status 0 non-freespace, 1 freespace,
// 2 unknown); the lists are sized once for all the cells, counts says how many are used.
struct FreespaceTiles {
    static constexpr int classCount = 3;
    std::array<std::vector<FreespaceTile>, classCount> tiles;
    std::array<std::size_t, classCount> counts{};
};

// ceil(|end - start| / resolution): the cells along one axis.
double CellCount(double start, double end, double resolution);
// Lays the cells of a grid that passed the message checks out into tiles.
void LayOutFreespaceCells(const orsa_msgs::StereoFreespace& message, StereoFreespaceChecker& checker,
                          FreespaceTiles& result);

} // namespace rviz_plugin

#endif

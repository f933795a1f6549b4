#include "stereo_freespace_checker.h"

#include <cmath>

namespace rviz_plugin {

namespace {
const QString probabilityName = "StereoFreespaceCellDataProbability";
const QString statusName = "StereoFreespaceCellDataStatus";
const QString xIndexName = "StereoFreespaceCellDataXIndex";
const QString yIndexName = "StereoFreespaceCellDataYIndex";

QString RangeText(const QString& what, double value, double lower, double upper)
{
    return QString("%4 [%3] of the StereoFreespace data type is out of range. Adjust the value to ensure it is within "
                   "[%1, %2].")
        .arg(lower)
        .arg(upper)
        .arg(value, 0, 'g', 10)
        .arg(what);
}

QString AttributeText(const QString& field, double value, double lower, double upper)
{
    return RangeText("The " + field + " attribute", value, lower, upper);
}

bool OutsideCoordinates(double value)
{
    return !(value >= -StereoFreespaceChecker::coordinateLimit && value <= StereoFreespaceChecker::coordinateLimit);
}
} // namespace

StereoFreespaceChecker::StereoFreespaceChecker(StatusSink& statusSink) : sink(statusSink)
{
    InitCellDataStatusRecord();
}

bool StereoFreespaceChecker::Raise(bool failed, const QString& name, const QString& text)
{
    if (failed) {
        sink.SetStatus(StatusSink::Error, name, text);
    } else {
        sink.DeleteStatus(name);
    }
    return failed;
}

bool StereoFreespaceChecker::IsInvalidStereoFreespaceData(const orsa_msgs::StereoFreespace& message)
{
    const auto& info = message.info;
    bool invalid = false;
    invalid |= Raise(std::fabs(info.xStart - info.xEnd) < 1e-6, "StereoFreespaceInfoXStartAndXEndEqual",
                     "The values of xStart and xEnd under StereoFreespace must be different. Otherwise, the "
                     "freespace area cannot be formed. ");
    invalid |= Raise(std::fabs(info.yStart - info.yEnd) < 1e-6, "StereoFreespaceInfoYStartAndYEndEqual",
                     "The values of yStart and yEnd under StereoFreespace must be different. Otherwise, the "
                     "freespace area cannot be formed.");
    invalid |= Raise(!(info.xResolution > 0), "StereoFreespaceInfoXResolution",
                     "The value of xResolution under StereoFreespace must be greater than 0.");
    invalid |= Raise(!(info.yResolution > 0), "StereoFreespaceInfoYResolution",
                     "The value of yResolution under StereoFreespace must be greater than 0.");
    invalid |= Raise(message.cellData.empty(), "StereoFreespaceCellDataEmpty",
                     "The cellData field under StereoFreespace must not be empty. Otherwise, freespace information "
                     "cannot be displayed. ");
    const struct {
        const char* name;
        const char* field;
        double value;
    } coordinates[] = {{"StereoFreespaceInfoXStart", "xStart", info.xStart},
                       {"StereoFreespaceInfoXEnd", "xEnd", info.xEnd},
                       {"StereoFreespaceInfoYStart", "yStart", info.yStart},
                       {"StereoFreespaceInfoYEnd", "yEnd", info.yEnd}};
    for (const auto& coordinate : coordinates) {
        invalid |= Raise(OutsideCoordinates(coordinate.value), coordinate.name,
                         AttributeText(coordinate.field, coordinate.value, -coordinateLimit, coordinateLimit));
    }
    const double cells = static_cast<double>(message.cellData.size());
    invalid |= Raise(message.cellData.size() > maxCells, "StereoFreespaceCellDataSize",
                     AttributeText("cellData.size()", cells, 0, static_cast<double>(maxCells)));
    const double xCount = CellCount(info.xStart, info.xEnd, info.xResolution);
    const double yCount = CellCount(info.yStart, info.yEnd, info.yResolution);
    invalid |= Raise(!(xCount <= maxIndexCount), "StereoFreespaceMaxXIndex",
                     RangeText("Maximum value of the xIndex attribute", xCount, 0, maxIndexCount));
    invalid |= Raise(!(yCount <= maxIndexCount), "StereoFreespaceMaxYIndex",
                     RangeText("Maximum value of the yIndex attribute", yCount, 0, maxIndexCount));
    return invalid;
}

void StereoFreespaceChecker::InitCellDataStatusRecord()
{
    for (const QString& name : {probabilityName, statusName, xIndexName, yIndexName}) {
        cellStatusRaised[name] = false;
    }
}

bool StereoFreespaceChecker::IsInvalidCellData(const orsa_msgs::StereoFreespaceCell& cell, long long maxXIndex,
                                               long long maxYIndex)
{
    bool invalid = false;
    // The texts are made only for a failed check: a grid has up to half a million cells.
    const auto warn = [this, &invalid](const QString& name, const char* field, double value, double upper) {
        sink.SetStatus(StatusSink::Warn, name, AttributeText(field, value, 0, upper));
        cellStatusRaised[name] = true;
        invalid = true;
    };
    const float probability = cell.probability;
    if (!(probability >= -probabilityTolerance && probability <= 1.0F + probabilityTolerance)) {
        warn(probabilityName, "probability", probability, 1);
    }
    if (cell.status > 2) {
        warn(statusName, "status", cell.status, 2);
    }
    if (static_cast<long long>(cell.xIndex) > maxXIndex) {
        warn(xIndexName, "xIndex", cell.xIndex, static_cast<double>(maxXIndex));
    }
    if (static_cast<long long>(cell.yIndex) > maxYIndex) {
        warn(yIndexName, "yIndex", cell.yIndex, static_cast<double>(maxYIndex));
    }
    return invalid;
}

void StereoFreespaceChecker::DeleteCellDataWarn()
{
    for (const auto& entry : cellStatusRaised) {
        if (!entry.second) {
            sink.DeleteStatus(entry.first);
        }
    }
}

double CellCount(double start, double end, double resolution)
{
    return std::ceil(std::fabs(end - start) / resolution);
}

void LayOutFreespaceCells(const orsa_msgs::StereoFreespace& message, StereoFreespaceChecker& checker,
                          FreespaceTiles& result)
{
    const auto& info = message.info;
    const std::size_t cellCount = message.cellData.size();
    for (auto& tiles : result.tiles) {
        if (tiles.size() < cellCount) {
            tiles.resize(cellCount);
        }
    }
    result.counts.fill(0);
    checker.InitCellDataStatusRecord();
    const auto maxXIndex = static_cast<long long>(CellCount(info.xStart, info.xEnd, info.xResolution)) - 1;
    const auto maxYIndex = static_cast<long long>(CellCount(info.yStart, info.yEnd, info.yResolution)) - 1;
    const double xStep = info.xEnd > info.xStart ? info.xResolution : -info.xResolution;
    const double yStep = info.yEnd > info.yStart ? info.yResolution : -info.yResolution;
    for (const orsa_msgs::StereoFreespaceCell& cell : message.cellData) {
        if (checker.IsInvalidCellData(cell, maxXIndex, maxYIndex)) {
            continue;
        }
        FreespaceTile& tile = result.tiles[cell.status][result.counts[cell.status]++];
        tile.x = static_cast<float>(info.xStart + cell.xIndex * xStep);
        tile.y = static_cast<float>(info.yStart + cell.yIndex * yStep);
    }
    checker.DeleteCellDataWarn();
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_PLOT_SERIES_H
#define RVIZ_PLUGIN_PLOT_SERIES_H

#include <QPointF>
#include <QRectF>
#include <QVector>

#include <cstddef>
#include <deque>

namespace rviz_plugin {

// The samples of one line: points, and the time of each. Against time a point's x is its time and
// no second copy is kept (16 bytes a sample); against another field the times are kept beside.
// Stored in blocks, so that growing never copies and the oldest samples go without moving the rest.
class PlotSeries {
public:
    // The hour a line keeps, and the tolerance of the comparisons of times.
    static constexpr double historySeconds = 3600.0;
    static constexpr double timeTolerance = 0.0001;

    void SetSeparateTimes(bool separate);
    bool HasSeparateTimes() const { return separateTimes; }
    // times has one entry for each point.
    void Append(const QVector<QPointF>& points, const QVector<double>& times);
    void Clear();

    std::size_t size() const { return points.size(); }
    bool empty() const { return points.empty(); }
    const QPointF& Point(std::size_t i) const { return points[i]; }
    double Time(std::size_t i) const { return separateTimes ? times[i] : points[i].x(); }

    // The count of oldest samples beyond range seconds, counted back from the newest sample over the
    // steps between neighbours; a step back (a replay starting over) does not count.
    std::size_t CalcStartIndexByRange(double range) const;
    // Drops the samples beyond range, all at once.
    void KeepRange(double range);

    // Whether any point is finite; only finite points make the bounds.
    bool HasBounds() const;
    // The smallest rectangle around the finite points (of no size for one point); null without any.
    QRectF BoundingRect() const;
    // True while x never decreases from one point to the next: then LowerBound works.
    bool IsXSorted() const { return xSorted; }
    // The first point with x not below value.
    std::size_t LowerBound(double value) const;
    // The lowest and highest finite y of the points [begin, end); false when none is finite. Reads
    // the summaries of whole blocks, so a long range costs little more than a short one.
    bool MinMaxY(std::size_t begin, std::size_t end, double& low, double& high) const;

    // Samples a block summary covers.
    static constexpr std::size_t blockSize = 32;

private:
    struct Block {
        double low;
        double high;
    };
    void Grow(const QPointF& point);
    void RecomputeBounds() const;
    void Summarise(const QPointF& point);
    void ScanY(std::size_t begin, std::size_t end, double& low, double& high) const;

    std::deque<QPointF> points;
    std::deque<double> times;
    // The y range of each block of samples, by the blocks' absolute numbers from firstBlock.
    std::deque<Block> blocks;
    std::size_t firstAbsolute = 0;  // the absolute number of points[0]
    std::size_t firstBlock = 0;
    bool separateTimes = false;
    bool xSorted = true;
    bool hasStepBack = false;
    mutable bool boundsValid = true;
    mutable bool hasBounds = false;
    mutable double minX = 0.0;
    mutable double maxX = 0.0;
    mutable double minY = 0.0;
    mutable double maxY = 0.0;
};

} // namespace rviz_plugin

#endif

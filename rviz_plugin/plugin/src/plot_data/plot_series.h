#ifndef RVIZ_PLUGIN_PLOT_SERIES_H
#define RVIZ_PLUGIN_PLOT_SERIES_H

#include <QPointF>
#include <QRectF>
#include <QVector>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace rviz_plugin {

// The samples of one line. Against time a sample's x is its time, kept as microseconds after the
// time of its chunk's first sample (4 bytes) beside its y (8 bytes); against another field x and the
// time are full doubles. Samples are stored in chunks, so that growing never copies and the oldest
// samples go without moving the rest; each chunk summarises the y range of its blocks for drawing.
class PlotSeries {
public:
    // The hour a line keeps, and the tolerance of the comparisons of times.
    static constexpr double historySeconds = 3600.0;
    static constexpr double timeTolerance = 0.0001;
    // Samples a chunk holds, and samples a y summary covers.
    static constexpr std::size_t chunkSize = 4096;
    static constexpr std::size_t blockSize = 32;

    void SetSeparateTimes(bool separate);
    bool HasSeparateTimes() const { return separateTimes; }
    // times has one entry for each point.
    void Append(const QVector<QPointF>& points, const QVector<double>& times);
    void Clear();

    std::size_t size() const { return count; }
    bool empty() const { return count == 0; }
    QPointF Point(std::size_t i) const;
    double Time(std::size_t i) const;

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

private:
    struct Block {
        float low;
        float high;
    };
    struct Chunk {
        std::size_t start = 0;  // the absolute number of its first sample
        double base = 0.0;      // against time: the time of its first sample
        std::vector<int32_t> offsets;
        std::vector<double> xs;
        std::vector<double> times;
        std::vector<double> ys;
        std::vector<Block> blocks;
        std::size_t size() const { return ys.size(); }
    };

    void Push(const QPointF& point, double time);
    bool Fits(const Chunk& chunk, double time) const;
    void Grow(const QPointF& point);
    void RecomputeBounds() const;
    // The chunk and the place in it of sample i (counted from the first kept sample).
    const Chunk& Locate(std::size_t i, std::size_t& at) const;
    double X(const Chunk& chunk, std::size_t at) const;

    std::deque<Chunk> chunks;
    std::size_t firstAbsolute = 0;  // the absolute number of sample 0
    std::size_t count = 0;
    mutable std::size_t lastChunk = 0;  // where the previous lookup ended: reads go mostly in order
    bool separateTimes = false;
    bool xSorted = true;
    bool hasStepBack = false;
    double lastTime = 0.0;
    mutable bool boundsValid = true;
    mutable bool hasBounds = false;
    mutable double minX = 0.0;
    mutable double maxX = 0.0;
    mutable double minY = 0.0;
    mutable double maxY = 0.0;
};

} // namespace rviz_plugin

#endif

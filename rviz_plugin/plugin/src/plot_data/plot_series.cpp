#include "plot_series.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace rviz_plugin {

namespace {
constexpr double microseconds = 1e6;

bool Finite(const QPointF& point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}
} // namespace

void PlotSeries::SetSeparateTimes(bool separate)
{
    if (separate != separateTimes) {
        Clear();
        separateTimes = separate;
    }
}

void PlotSeries::Clear()
{
    chunks.clear();
    firstAbsolute = 0;
    count = 0;
    lastChunk = 0;
    xSorted = true;
    hasStepBack = false;
    boundsValid = true;
    hasBounds = false;
}

bool PlotSeries::Fits(const Chunk& chunk, double time) const
{
    if (chunk.size() >= chunkSize) {
        return false;
    }
    if (separateTimes) {
        return true;
    }
    const double offset = std::round((time - chunk.base) * microseconds);
    return std::isfinite(time) && offset >= std::numeric_limits<int32_t>::min() &&
           offset <= std::numeric_limits<int32_t>::max();
}

void PlotSeries::Push(const QPointF& point, double time)
{
    if (chunks.empty() || !Fits(chunks.back(), time)) {
        Chunk& chunk = chunks.emplace_back();
        chunk.start = firstAbsolute + count;
        chunk.base = std::isfinite(time) ? time : 0.0;
        chunk.ys.reserve(chunkSize);
        chunk.blocks.reserve(chunkSize / blockSize);
        if (separateTimes) {
            chunk.xs.reserve(chunkSize);
            chunk.times.reserve(chunkSize);
        } else {
            chunk.offsets.reserve(chunkSize);
        }
    }
    Chunk& chunk = chunks.back();
    if (separateTimes) {
        chunk.xs.push_back(point.x());
        chunk.times.push_back(time);
    } else {
        // A time that is not finite cannot be an offset: it stays the chunk's base, drawn nowhere.
        const double offset = std::isfinite(time) ? std::round((time - chunk.base) * microseconds) : 0.0;
        chunk.offsets.push_back(static_cast<int32_t>(offset));
    }
    if (chunk.size() % blockSize == 0) {
        chunk.blocks.push_back(Block{std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity()});
    }
    chunk.ys.push_back(point.y());
    if (std::isfinite(point.y())) {
        // Rounded outwards: a summary never cuts a sample's extent.
        Block& block = chunk.blocks.back();
        constexpr float infinity = std::numeric_limits<float>::infinity();
        const auto value = static_cast<float>(point.y());
        block.low = std::min(block.low, std::nextafter(value, -infinity));
        block.high = std::max(block.high, std::nextafter(value, infinity));
    }
    ++count;
}

void PlotSeries::Grow(const QPointF& point)
{
    if (!boundsValid || !Finite(point)) {
        return;
    }
    if (!hasBounds) {
        minX = maxX = point.x();
        minY = maxY = point.y();
        hasBounds = true;
        return;
    }
    minX = std::min(minX, point.x());
    maxX = std::max(maxX, point.x());
    minY = std::min(minY, point.y());
    maxY = std::max(maxY, point.y());
}

void PlotSeries::Append(const QVector<QPointF>& newPoints, const QVector<double>& newTimes)
{
    const int added = std::min(newPoints.size(), newTimes.size());
    for (int i = 0; i < added; ++i) {
        // Against time a point's x is its time.
        const double time = separateTimes ? newTimes[i] : newPoints[i].x();
        if (count > 0 && time - lastTime < -timeTolerance) {
            hasStepBack = true;
        }
        const double previousX = count > 0 ? Point(count - 1).x() : 0.0;
        Push(newPoints[i], time);
        // As stored: against time x is kept to the microsecond.
        const QPointF stored = Point(count - 1);
        if (count > 1 && stored.x() < previousX) {
            xSorted = false;
        }
        Grow(stored);
        lastTime = time;
    }
}

const PlotSeries::Chunk& PlotSeries::Locate(std::size_t i, std::size_t& at) const
{
    const std::size_t absolute = firstAbsolute + i;
    std::size_t index = std::min(lastChunk, chunks.size() - 1);
    if (chunks[index].start > absolute || chunks[index].start + chunks[index].size() <= absolute) {
        const auto found = std::upper_bound(chunks.begin(), chunks.end(), absolute,
                                            [](std::size_t value, const Chunk& chunk) { return value < chunk.start; });
        index = static_cast<std::size_t>(found - chunks.begin()) - 1;
        lastChunk = index;
    }
    at = absolute - chunks[index].start;
    return chunks[index];
}

QPointF PlotSeries::Point(std::size_t i) const
{
    std::size_t at = 0;
    const Chunk& chunk = Locate(i, at);
    return QPointF(X(chunk, at), chunk.ys[at]);
}

double PlotSeries::Time(std::size_t i) const
{
    if (!separateTimes) {
        return Point(i).x();
    }
    std::size_t at = 0;
    return Locate(i, at).times[at];
}

std::size_t PlotSeries::CalcStartIndexByRange(double range) const
{
    if (count < 2) {
        return 0;
    }
    const double limit = range + timeTolerance;
    if (!hasStepBack) {
        // Without a step back the sum of the steps is the difference of the times.
        const double newest = Time(count - 1);
        std::size_t low = 0;
        std::size_t high = count - 1;
        while (low < high) {
            const std::size_t middle = low + (high - low) / 2;
            if (newest - Time(middle) > limit) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        return low;
    }
    double sum = 0.0;
    double later = Time(count - 1);
    for (std::size_t i = count - 1; i > 0; --i) {
        const double earlier = Time(i - 1);
        const double step = later - earlier;
        later = earlier;
        if (step < -timeTolerance) {
            continue;
        }
        sum += step;
        if (sum > limit) {
            return i;
        }
    }
    return 0;
}

void PlotSeries::KeepRange(double range)
{
    const std::size_t drop = CalcStartIndexByRange(range);
    if (drop == 0) {
        return;
    }
    // The bounds change only when a dropped point was on them.
    for (std::size_t i = 0; i < drop && boundsValid && hasBounds; ++i) {
        const QPointF p = Point(i);
        if (p.x() <= minX || p.x() >= maxX || p.y() <= minY || p.y() >= maxY) {
            boundsValid = false;
        }
    }
    firstAbsolute += drop;
    count -= drop;
    while (!chunks.empty() && chunks.front().start + chunks.front().size() <= firstAbsolute) {
        chunks.pop_front();
    }
    lastChunk = 0;
}

void PlotSeries::RecomputeBounds() const
{
    hasBounds = false;
    for (std::size_t i = 0; i < count; ++i) {
        const QPointF p = Point(i);
        if (!Finite(p)) {
            continue;
        }
        if (!hasBounds) {
            minX = maxX = p.x();
            minY = maxY = p.y();
            hasBounds = true;
            continue;
        }
        minX = std::min(minX, p.x());
        maxX = std::max(maxX, p.x());
        minY = std::min(minY, p.y());
        maxY = std::max(maxY, p.y());
    }
    boundsValid = true;
}

bool PlotSeries::HasBounds() const
{
    if (!boundsValid) {
        RecomputeBounds();
    }
    return hasBounds;
}

QRectF PlotSeries::BoundingRect() const
{
    if (!HasBounds()) {
        return QRectF();
    }
    return QRectF(QPointF(minX, minY), QPointF(maxX, maxY));
}

double PlotSeries::X(const Chunk& chunk, std::size_t at) const
{
    return separateTimes ? chunk.xs[at] : chunk.base + static_cast<double>(chunk.offsets[at]) / microseconds;
}

std::size_t PlotSeries::LowerBound(double value) const
{
    if (count == 0) {
        return 0;
    }
    // The first chunk whose last sample is not below value, then the place in it.
    const auto chunk = std::partition_point(chunks.begin(), chunks.end(),
                                            [&](const Chunk& c) { return X(c, c.size() - 1) < value; });
    if (chunk == chunks.end()) {
        return count;
    }
    const std::size_t first = chunk->start < firstAbsolute ? firstAbsolute - chunk->start : 0;
    std::size_t low = first;
    std::size_t high = chunk->size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (X(*chunk, middle) < value) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return chunk->start + low - firstAbsolute;
}

bool PlotSeries::MinMaxY(std::size_t begin, std::size_t end, double& low, double& high) const
{
    low = std::numeric_limits<double>::infinity();
    high = -std::numeric_limits<double>::infinity();
    const auto scan = [&low, &high](double y) {
        if (std::isfinite(y)) {
            low = std::min(low, y);
            high = std::max(high, y);
        }
    };
    end = std::min(end, count);
    for (std::size_t i = begin; i < end;) {
        std::size_t at = 0;
        const Chunk& chunk = Locate(i, at);
        const std::size_t stop = std::min(chunk.size(), at + (end - i));
        // The samples up to a block's start, the whole blocks, then the rest.
        std::size_t position = at;
        for (; position < stop && position % blockSize != 0; ++position) {
            scan(chunk.ys[position]);
        }
        for (; position + blockSize <= stop; position += blockSize) {
            const Block& block = chunk.blocks[position / blockSize];
            if (block.low <= block.high) {
                low = std::min(low, static_cast<double>(block.low));
                high = std::max(high, static_cast<double>(block.high));
            }
        }
        for (; position < stop; ++position) {
            scan(chunk.ys[position]);
        }
        i += stop - at;
    }
    return low <= high;
}

} // namespace rviz_plugin

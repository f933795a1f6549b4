#include "plot_series.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace rviz_plugin {

void PlotSeries::SetSeparateTimes(bool separate)
{
    if (separate != separateTimes) {
        Clear();
        separateTimes = separate;
    }
}

void PlotSeries::Clear()
{
    points.clear();
    times.clear();
    blocks.clear();
    firstAbsolute = 0;
    firstBlock = 0;
    xSorted = true;
    hasStepBack = false;
    boundsValid = true;
    hasBounds = false;
}

void PlotSeries::Grow(const QPointF& point)
{
    if (!points.empty() && point.x() < points.back().x()) {
        xSorted = false;
    }
    Summarise(point);
    points.push_back(point);
    // A point that is not finite is kept (its time counts) but never widens the bounds.
    if (!boundsValid || !std::isfinite(point.x()) || !std::isfinite(point.y())) {
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
    const int count = std::min(newPoints.size(), newTimes.size());
    for (int i = 0; i < count; ++i) {
        const double last = empty() ? newTimes[i] : Time(size() - 1);
        if (newTimes[i] - last < -timeTolerance) {
            hasStepBack = true;
        }
        Grow(newPoints[i]);
        if (separateTimes) {
            times.push_back(newTimes[i]);
        }
    }
}

std::size_t PlotSeries::CalcStartIndexByRange(double range) const
{
    const std::size_t count = size();
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
    for (std::size_t i = count - 1; i > 0; --i) {
        const double step = Time(i) - Time(i - 1);
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
        const QPointF& p = points[i];
        if (p.x() <= minX || p.x() >= maxX || p.y() <= minY || p.y() >= maxY) {
            boundsValid = false;
        }
    }
    points.erase(points.begin(), points.begin() + static_cast<std::ptrdiff_t>(drop));
    if (separateTimes) {
        times.erase(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(drop));
    }
    firstAbsolute += drop;
    while (!blocks.empty() && (firstBlock + 1) * blockSize <= firstAbsolute) {
        blocks.pop_front();
        ++firstBlock;
    }
    // The first block lost some of its points: summarise what is left of it.
    if (!blocks.empty()) {
        const std::size_t end = std::min(points.size(), (firstBlock + 1) * blockSize - firstAbsolute);
        blocks.front() = Block{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};
        ScanY(0, end, blocks.front().low, blocks.front().high);
    }
}

void PlotSeries::Summarise(const QPointF& point)
{
    const std::size_t block = (firstAbsolute + points.size()) / blockSize;
    if (blocks.empty()) {
        firstBlock = block;
    }
    if (block >= firstBlock + blocks.size()) {
        blocks.push_back(Block{std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()});
    }
    if (std::isfinite(point.y())) {
        Block& last = blocks.back();
        last.low = std::min(last.low, point.y());
        last.high = std::max(last.high, point.y());
    }
}

void PlotSeries::ScanY(std::size_t begin, std::size_t end, double& low, double& high) const
{
    for (std::size_t i = begin; i < end; ++i) {
        const double y = points[i].y();
        if (std::isfinite(y)) {
            low = std::min(low, y);
            high = std::max(high, y);
        }
    }
}

bool PlotSeries::MinMaxY(std::size_t begin, std::size_t end, double& low, double& high) const
{
    low = std::numeric_limits<double>::infinity();
    high = -std::numeric_limits<double>::infinity();
    end = std::min(end, points.size());
    if (begin >= end) {
        return false;
    }
    // Block boundaries as indices into points.
    const auto boundary = [this](std::size_t block) { return block * blockSize - firstAbsolute; };
    const std::size_t firstWhole = (firstAbsolute + begin + blockSize - 1) / blockSize;
    const std::size_t lastWhole = (firstAbsolute + end) / blockSize;  // one past
    if (firstWhole >= lastWhole) {
        ScanY(begin, end, low, high);
    } else {
        ScanY(begin, boundary(firstWhole), low, high);
        for (std::size_t block = firstWhole; block < lastWhole; ++block) {
            const Block& summary = blocks[block - firstBlock];
            low = std::min(low, summary.low);
            high = std::max(high, summary.high);
        }
        ScanY(boundary(lastWhole), end, low, high);
    }
    return low <= high;
}

void PlotSeries::RecomputeBounds() const
{
    hasBounds = false;
    for (const QPointF& p : points) {
        if (!std::isfinite(p.x()) || !std::isfinite(p.y())) {
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

std::size_t PlotSeries::LowerBound(double value) const
{
    const auto found =
        std::lower_bound(points.begin(), points.end(), value, [](const QPointF& p, double x) { return p.x() < x; });
    return static_cast<std::size_t>(found - points.begin());
}

} // namespace rviz_plugin

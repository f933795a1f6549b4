#include "plot_curve.h"

#include <qwt_painter.h>
#include <qwt_scale_map.h>
#include <qwt_series_data.h>
#include <qwt_symbol.h>

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <limits>

namespace rviz_plugin {

namespace {
// Qwt's view of a line's samples: no copy.
class PlotSeriesData : public QwtSeriesData<QPointF> {
public:
    explicit PlotSeriesData(std::shared_ptr<const PlotSeries> samples) : series(std::move(samples)) {}
    size_t size() const override { return series->size(); }
    QPointF sample(size_t i) const override { return series->Point(i); }
    QRectF boundingRect() const override { return series->BoundingRect(); }

private:
    std::shared_ptr<const PlotSeries> series;
};

// Keeps a pixel coordinate within reach of the painter: far outside the canvas it changes nothing seen.
double Clamp(double value, double low, double high)
{
    return std::min(std::max(value, low), high);
}

// Collects the vertices of one stretch of finite samples, at most four a pixel column.
class ColumnReducer {
public:
    ColumnReducer(QPainter* painter, const QRectF& canvas) : painter(painter)
    {
        const double margin = 4.0 * std::max(canvas.width(), canvas.height()) + 1000.0;
        low = QPointF(canvas.left() - margin, canvas.top() - margin);
        high = QPointF(canvas.right() + margin, canvas.bottom() + margin);
    }
    void Add(double x, double y)
    {
        x = Clamp(x, low.x(), high.x());
        y = Clamp(y, low.y(), high.y());
        const auto column = static_cast<long long>(std::floor(x));
        if (!open || column != currentColumn) {
            FlushColumn();
            open = true;
            currentColumn = column;
            first = last = QPointF(x, y);
            minY = maxY = y;
            count = 1;
            return;
        }
        last = QPointF(x, y);
        minY = std::min(minY, y);
        maxY = std::max(maxY, y);
        ++count;
    }
    // Ends the stretch: the next sample starts a new line.
    void Break()
    {
        FlushColumn();
        if (polyline.size() > 1) {
            painter->drawPolyline(polyline);
        } else if (polyline.size() == 1) {
            QwtPainter::drawPoint(painter, polyline.front());
        }
        polyline.resize(0);
    }

private:
    void FlushColumn()
    {
        if (!open) {
            return;
        }
        open = false;
        polyline.append(first);
        if (count > 1) {
            const double x = first.x();
            if (minY < std::min(first.y(), last.y())) {
                polyline.append(QPointF(x, minY));
            }
            if (maxY > std::max(first.y(), last.y())) {
                polyline.append(QPointF(x, maxY));
            }
            polyline.append(last);
        }
    }

    QPainter* painter;
    QPointF low;
    QPointF high;
    QPolygonF polyline;
    bool open = false;
    long long currentColumn = 0;
    QPointF first;
    QPointF last;
    double minY = 0.0;
    double maxY = 0.0;
    int count = 0;
};
} // namespace

PlotCurve::PlotCurve(const QString& curveName) : name(curveName), series(std::make_shared<PlotSeries>())
{
    setRenderHint(QwtPlotItem::RenderAntialiased, true);
    setData(new PlotSeriesData(series));
}

void PlotCurve::SamplesChanged()
{
    dataChanged();
    UpdateSymbol();
}

void PlotCurve::UpdateSymbol()
{
    const QRectF bounds = series->BoundingRect();
    const bool single = series->HasBounds() && bounds.width() == 0.0 && bounds.height() == 0.0;
    if (single && symbol() == nullptr) {
        setSymbol(new QwtSymbol(QwtSymbol::Ellipse, QBrush(pen().color()), QPen(pen().color()), QSize(5, 5)));
    } else if (!single && symbol() != nullptr) {
        setSymbol(nullptr);
    }
}

void PlotCurve::drawLines(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                          const QRectF& canvasRect, int from, int to) const
{
    if (from > to || series->empty()) {
        return;
    }
    std::size_t begin = static_cast<std::size_t>(from);
    std::size_t end = std::min(series->size(), static_cast<std::size_t>(to) + 1);
    if (series->IsXSorted()) {
        // The samples in view, and one on each side so that the line leaves the canvas.
        const double left = xMap.invTransform(canvasRect.left());
        const double right = xMap.invTransform(canvasRect.right());
        const std::size_t first = series->LowerBound(std::min(left, right));
        const std::size_t last = series->LowerBound(std::max(left, right));
        begin = std::max(begin, first == 0 ? 0 : first - 1);
        end = std::min(end, last + 1);
    }
    ColumnReducer reducer(painter, canvasRect);
    const auto add = [&](const QPointF& p) {
        if (!std::isfinite(p.x()) || !std::isfinite(p.y())) {
            reducer.Break();
            return false;
        }
        reducer.Add(xMap.transform(p.x()), yMap.transform(p.y()));
        return true;
    };
    const double columns = std::max(1.0, canvasRect.width());
    if (!series->IsXSorted() || static_cast<double>(end - begin) <= 4.0 * columns) {
        for (std::size_t i = begin; i < end; ++i) {
            add(series->Point(i));
        }
        reducer.Break();
        return;
    }
    // Many samples a column: each column reads its samples' range from the series' block summaries.
    add(series->Point(begin));
    std::size_t next = begin + 1;
    const int left = static_cast<int>(std::floor(canvasRect.left()));
    const int right = static_cast<int>(std::ceil(canvasRect.right()));
    for (int column = left; column <= right && next < end; ++column) {
        const double edge = xMap.invTransform(column + 1);
        const std::size_t stop = std::min(end, std::max(next, series->LowerBound(edge)));
        if (stop == next) {
            continue;
        }
        double low = 0.0;
        double high = 0.0;
        if (!series->MinMaxY(next, stop, low, high)) {
            reducer.Break();
            next = stop;
            continue;
        }
        const QPointF first = series->Point(next);
        const QPointF last = series->Point(stop - 1);
        const double x = xMap.transform(first.x());
        add(first);
        reducer.Add(x, yMap.transform(low));
        reducer.Add(x, yMap.transform(high));
        add(last);
        next = stop;
    }
    for (; next < end; ++next) {
        add(series->Point(next));
    }
    reducer.Break();
}

int PlotCurve::ClosestSample(const QPointF& pos, const QwtScaleMap& xMap, const QwtScaleMap& yMap) const
{
    if (series->empty()) {
        return -1;
    }
    if (series->IsXSorted()) {
        const double x = xMap.invTransform(pos.x());
        const std::size_t at = std::min(series->LowerBound(x), series->size() - 1);
        if (at > 0 && std::abs(series->Point(at - 1).x() - x) <= std::abs(series->Point(at).x() - x)) {
            return static_cast<int>(at - 1);
        }
        return static_cast<int>(at);
    }
    int best = -1;
    double bestDistance = std::numeric_limits<double>::max();
    for (std::size_t i = 0; i < series->size(); ++i) {
        const QPointF p = series->Point(i);
        const double dx = xMap.transform(p.x()) - pos.x();
        const double dy = yMap.transform(p.y()) - pos.y();
        const double distance = dx * dx + dy * dy;
        if (distance < bestDistance) {
            bestDistance = distance;
            best = static_cast<int>(i);
        }
    }
    return best;
}

} // namespace rviz_plugin

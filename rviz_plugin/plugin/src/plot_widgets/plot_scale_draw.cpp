#include "plot_scale_draw.h"

#include "plot_data/plot_global.h"

#include <qwt_scale_div.h>
#include <qwt_text.h>

#include <QFont>
#include <QPainter>

#include <algorithm>

namespace rviz_plugin {

namespace {
QFont LabelFont()
{
    return QFont("Ubuntu", 10);
}
} // namespace

PlotScaleDraw::PlotScaleDraw(Alignment align) : alignment(align)
{
    setAlignment(align);
}

QwtText PlotScaleDraw::label(double value) const
{
    QString text = QString::number(value, 'f', 2);
    if (alignment == BottomScale) {
        const int ticks = std::max(1, static_cast<int>(scaleDiv().ticks(QwtScaleDiv::MajorTick).size()));
        text = PlotGlobal::GetElidedText(text, LabelFont(), std::max(1, static_cast<int>(length()) / ticks - 10));
    }
    return QwtText(text);
}

void PlotScaleDraw::drawLabel(QPainter* painter, double value) const
{
    painter->save();
    painter->setFont(LabelFont());
    painter->setPen(QColor("#999999"));
    QwtScaleDraw::drawLabel(painter, value);
    painter->restore();
}

void PlotScaleDraw::drawBackbone(QPainter* painter) const
{
    painter->save();
    painter->setPen(QColor("#E6E8EC"));
    QwtScaleDraw::drawBackbone(painter);
    painter->restore();
}

void PlotScaleDraw::drawTick(QPainter*, double, double) const {}

} // namespace rviz_plugin

#include "panel_painting.h"

#include "foundation/set_qss.h"
#include "vehicle_panels_logic/panel_values.h"

#include <QFile>
#include <QSettings>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

namespace rviz_plugin {

PanelSection::PanelSection(const QString& section, const QString& file)
{
    if (!QFile::exists(file)) {
        return;
    }
    QSettings settings(file, QSettings::IniFormat);
    settings.setIniCodec("UTF8");
    settings.beginGroup(section);
    for (const QString& key : settings.childKeys()) {
        values.insert(key, settings.value(key).toDouble());
    }
    settings.endGroup();
}

double PanelSection::Value(const QString& key) const
{
    return values.value(key, 0.0);
}

QSizeF PanelSection::MinSize() const
{
    return {Value("minWidth"), Value("minHeight")};
}

void ApplyWheelStyle(QWidget* widget)
{
    SetQss().SetStyle(widget, ":/config/wheel.qss");
    widget->ensurePolished();
}

QString FixedText(double value, int decimals)
{
    return QString::fromStdString(FormatFixed(value, decimals));
}

void MakeOpaquePanelWidget(QWidget* widget)
{
    widget->setAttribute(Qt::WA_OpaquePaintEvent, true);
}

void FillPanelBackground(QPainter& painter, const QRect& rect)
{
    painter.fillRect(rect, QColor(20, 21, 24));
}

void SetScale(QPainter& painter, const QRect& rect, const QSizeF& designSize)
{
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    if (designSize.width() <= 0 || designSize.height() <= 0) {
        return;
    }
    const double scale = std::min(rect.width() / designSize.width(), rect.height() / designSize.height());
    painter.scale(scale, scale);
}

void DrawBoxText(QPainter& painter, const QRectF& box, const QString& text, const QColor& color, int pixelSize,
                 int flags, bool bold)
{
    QFont font = painter.font();
    font.setPixelSize(std::max(pixelSize, 1));
    font.setBold(bold);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(box, flags, text);
}

SvgIcons::SvgIcons() = default;
SvgIcons::~SvgIcons() = default;

SvgIcons::Icon* SvgIcons::Get(const QString& path) const
{
    auto found = icons.find(path);
    if (found == icons.end()) {
        Icon icon;
        icon.renderer = std::make_shared<QSvgRenderer>(path);
        found = icons.insert(path, icon);
    }
    return found->renderer->isValid() ? &found.value() : nullptr;
}

QSizeF SvgIcons::Size(const QString& path) const
{
    const Icon* icon = Get(path);
    return icon ? QSizeF(icon->renderer->defaultSize()) : QSizeF();
}

void SvgIcons::Render(QPainter& painter, const QString& path, const QPointF& topLeft, double scale) const
{
    RenderIn(painter, path, QRectF(topLeft, Size(path) * scale));
}

void SvgIcons::RenderIn(QPainter& painter, const QString& path, const QRectF& box) const
{
    Icon* found = Get(path);
    if (!found || box.isEmpty()) {
        return;
    }
    Icon& icon = *found;
    // The painter's scale, rotation aside: the icon is drawn from a picture of that many device pixels.
    const double scale = std::sqrt(std::fabs(painter.worldTransform().determinant()));
    const QSize pixels = (box.size() * scale).toSize().expandedTo(QSize(1, 1));
    if (icon.picture.size() != pixels) {
        icon.picture = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
        icon.picture.fill(Qt::transparent);
        QPainter picturePainter(&icon.picture);
        picturePainter.setRenderHint(QPainter::Antialiasing, true);
        icon.renderer->render(&picturePainter, QRectF(QPointF(0, 0), QSizeF(pixels)));
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter.drawImage(box, icon.picture);
    painter.restore();
}

} // namespace rviz_plugin

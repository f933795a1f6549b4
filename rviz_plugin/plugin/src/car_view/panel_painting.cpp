#include "panel_painting.h"

#include <QFile>
#include <QSettings>
#include <QSvgRenderer>

#include <algorithm>

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

QString ReadWheelStyleSheet()
{
    QFile file(":/config/wheel.qss");
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QString::fromUtf8(file.readAll());
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

QSvgRenderer* SvgIcons::Get(const QString& path) const
{
    auto found = renderers.find(path);
    if (found == renderers.end()) {
        found = renderers.insert(path, std::make_shared<QSvgRenderer>(path));
    }
    return found.value()->isValid() ? found.value().get() : nullptr;
}

QSizeF SvgIcons::Size(const QString& path) const
{
    QSvgRenderer* renderer = Get(path);
    return renderer ? QSizeF(renderer->defaultSize()) : QSizeF();
}

void SvgIcons::Render(QPainter& painter, const QString& path, const QPointF& topLeft, double scale) const
{
    QSvgRenderer* renderer = Get(path);
    if (renderer) {
        renderer->render(&painter, QRectF(topLeft, QSizeF(renderer->defaultSize()) * scale));
    }
}

void SvgIcons::RenderIn(QPainter& painter, const QString& path, const QRectF& box) const
{
    QSvgRenderer* renderer = Get(path);
    if (renderer) {
        renderer->render(&painter, box);
    }
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_PANEL_PAINTING_H
#define RVIZ_PLUGIN_PANEL_PAINTING_H

#include <QColor>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QWidget>

#include <memory>

class QSvgRenderer;

namespace rviz_plugin {

// The values of one section of the panels' layout file, in design pixels. A file that does not
// open, or a key that is missing, reads 0.
class PanelSection {
public:
    explicit PanelSection(const QString& section, const QString& file = ":/config/panel.ini");
    double Value(const QString& key) const;
    // minWidth by minHeight of a size section.
    QSizeF MinSize() const;

private:
    QHash<QString, double> values;
};

// Applies the vehicle panels' style sheet (":/config/wheel.qss"), which sets the widgets' properties.
void ApplyWheelStyle(QWidget* widget);

// A number in fixed notation with the given decimals ("%.*f").
QString FixedText(double value, int decimals);

// Makes widget paint its whole rectangle itself (on the panels' background colour), so that a repaint
// of the widget never repaints the panel behind it.
void MakeOpaquePanelWidget(QWidget* widget);
// Fills the widget's rectangle with the panels' background colour.
void FillPanelBackground(QPainter& painter, const QRect& rect);

// Scales the painter uniformly by the smaller of the rectangle's ratios to the design size, so that
// drawing in design pixels fills the widget at any size; antialiasing on.
void SetScale(QPainter& painter, const QRect& rect, const QSizeF& designSize);

// Text in a box, in the given pixel size and colour.
void DrawBoxText(QPainter& painter, const QRectF& box, const QString& text, const QColor& color, int pixelSize,
                 int flags = Qt::AlignCenter, bool bold = false);

// SVG icons by resource path, each parsed once and kept for the panel's life. An icon is drawn from a
// picture rendered at the size it last had on the device, made again when that size changes, so
// that a repaint at the same size costs one image blit an icon.
class SvgIcons {
public:
    SvgIcons();
    ~SvgIcons();
    SvgIcons(const SvgIcons&) = delete;
    SvgIcons& operator=(const SvgIcons&) = delete;

    // The icon's default size; empty for a path that does not load.
    QSizeF Size(const QString& path) const;
    // Renders at top-left at its default size times scale.
    void Render(QPainter& painter, const QString& path, const QPointF& topLeft, double scale = 1.0) const;
    // Renders into box.
    void RenderIn(QPainter& painter, const QString& path, const QRectF& box) const;

private:
    struct Icon {
        std::shared_ptr<QSvgRenderer> renderer;
        QImage picture;
    };
    Icon* Get(const QString& path) const;
    mutable QHash<QString, Icon> icons;  // a cache
};

} // namespace rviz_plugin

#endif

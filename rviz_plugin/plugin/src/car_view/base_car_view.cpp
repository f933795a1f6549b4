#include "base_car_view.h"

#include "foundation/logger.h"
#include "vehicle_panels_logic/panel_values.h"

#include <QConicalGradient>
#include <QFile>
#include <QPainter>
#include <QSettings>

#include <cmath>
#include <exception>

namespace {

const char* const layoutFile = ":/config/panel.ini";
const QString wheelIcon = ":/icons/wheelPic.svg";
const QString rulerIcon = ":/icons/rulerBarPic.svg";
const QString hazardIcon = ":/icons/signalPic.svg";
constexpr double divisor = 2;

QMap<QString, double> ReadGroup(QSettings& settings, const QString& group)
{
    QMap<QString, double> values;
    settings.beginGroup(group);
    for (const QString& key : settings.childKeys()) {
        values.insert(key, settings.value(key).toDouble());
    }
    settings.endGroup();
    return values;
}

} // namespace

BaseCarView::BaseCarView(QWidget* parent) : QWidget(parent)
{
    rviz_plugin::MakeOpaquePanelWidget(this);
    leftBar.side = 0;
    rightBar.side = 1;
}

void BaseCarView::ReadConf()
{
    rviz_plugin::ApplyWheelStyle(this);
    if (!QFile::exists(layoutFile)) {
        return;
    }
    QSettings settings(layoutFile, QSettings::IniFormat);
    settings.setIniCodec("UTF8");
    const QMap<QString, double> size = ReadGroup(settings, "PanelSize");
    designSize = QSizeF(size.value("minWidth"), size.value("minHeight"));
    setMinimumSize(designSize.toSize());
    info = ReadGroup(settings, "Info");
    wheel = ReadGroup(settings, "Wheel");
    signal = ReadGroup(settings, "Signal");
    InitializeBarData(settings);
    InitializeGearInfo();
}

void BaseCarView::InitializeBarData(const QSettings& settings)
{
    const auto value = [&settings, this](const QString& key) {
        return settings.value(barSection + "/" + key).toDouble();
    };
    for (Bar* bar : {&leftBar, &rightBar}) {
        const QString side = bar->side == 0 ? "left" : "right";
        bar->xOffset = value(side + "XOffset");
        bar->yOffset = value(side + "YOffset");
        bar->pixXOffset = value(side + "PixXOffset");
        bar->textXOffset = value(side + "TextXOffset");
    }
}

void BaseCarView::InitializeGearInfo()
{
    const double y = info.value("yOffset");
    const double width = info.value("gearWidth");
    const double height = info.value("height");
    gears.clear();
    gears.insert(1, {"P", QRectF(info.value("pValueXOffset"), y, width, height)});
    gears.insert(2, {"R", QRectF(info.value("rValueXOffset"), y, width, height)});
    gears.insert(3, {"N", QRectF(info.value("nValueXOffset"), y, width, height)});
    gears.insert(4, {"D", QRectF(info.value("dValueXOffset"), y, width, height)});
}

void BaseCarView::UpdateValue(const custom::VehicleStatus& status)
{
    Orsa::RunLoggingExceptions("CarView", [&] {
        brakeValue = 100 * status.brake;
        throttleValue = 100 * status.throttle;
        speed = status.vehicleSpeed;
        acceleration = status.vehicleAcceleration;
        wheelAngle = status.steeringWheelAngle;
        wheelRadians = status.steeringWheelRadians;
        gear = status.gear;
        hazardLights = status.hazardLights;
        turnLight = status.turnLight;
        QWidget::update();
    });
    dataSeen = true;
}

void BaseCarView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    rviz_plugin::FillPanelBackground(painter, rect());
    SetScale(painter);
    DrawInfo(painter);
    DrawSteeringWheel(painter);
    DrawRing(painter);
    DrawKmValue(painter);
    DrawKm(painter);
    DrawBar(painter, leftBar);
    DrawBar(painter, rightBar);
    DrawWarnSignal(painter);
}

void BaseCarView::SetScale(QPainter& painter)
{
    rviz_plugin::SetScale(painter, rect(), designSize);
}

void BaseCarView::DrawInfo(QPainter& painter)
{
    constexpr int infoFontSize = 16;
    const double y = info.value("yOffset");
    const double width = info.value("width");
    const double height = info.value("height");
    const double ratioX = info.value("ratioValueXOffset");
    rviz_plugin::DrawBoxText(painter, QRectF(info.value("angleXOffset"), y, width, height),
                             QString::number(wheelAngle, 'f', 1) + QString::fromUtf8("°"), fontColor,
                             infoFontSize);
    rviz_plugin::DrawBoxText(painter, QRectF(ratioX, y, width, height), QString::number(wheelRadians, 'f', 1),
                             fontColor, infoFontSize);
    rviz_plugin::DrawBoxText(painter, QRectF(ratioX + 130, y + 3, 1.65 * width, signal.value("height")),
                             QString::fromUtf8("%1m/s²").arg(acceleration, 0, 'f', 3), fontColor, infoFontSize);
    DrawGear(painter);
}

void BaseCarView::SetChooseStyle(ValueState state, QFont& font, QColor& color) const
{
    const bool chosen = state == ValueState::Choose;
    font.setPixelSize(chosen ? 18 : 14);
    font.setBold(chosen);
    color = QColor(chosen ? 0xff00dfffU : 0xff98999eU);
}

void BaseCarView::DrawGear(QPainter& painter)
{
    for (Gear& entry : gears) {
        entry.state = ValueState::Normal;
    }
    const auto present = gears.find(gear);
    if (present != gears.end()) {
        present->state = ValueState::Choose;
    }
    for (Gear& entry : gears) {
        DrawGearStyle(painter, entry.state, entry.rect, entry.letter);
    }
}

void BaseCarView::DrawGearStyle(QPainter& painter, ValueState state, QRectF& rect, QString letter)
{
    QFont font = painter.font();
    QColor color;
    SetChooseStyle(state, font, color);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignCenter, letter);
}

void BaseCarView::DrawSteeringWheel(QPainter& painter)
{
    const QSizeF size = icons.Size(wheelIcon);
    painter.save();
    painter.translate(WheelCentre());
    painter.rotate(-wheelAngle);
    icons.Render(painter, wheelIcon, QPointF(-size.width() / divisor, -size.height() / divisor));
    painter.restore();
}

void BaseCarView::DrawRing(QPainter& painter)
{
    const QPointF centre = WheelCentre();
    const double side = icons.Size(wheelIcon).width() - ringPadding;
    const QRectF box(centre.x() - wheel.value("width") / divisor + 5, centre.y() - wheel.value("width") / divisor + 5,
                     side, side);
    QPen pen(ringColor, ringWidth, Qt::SolidLine, Qt::FlatCap);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    constexpr int sixteenths = 16;
    painter.drawArc(box, static_cast<int>((startAngle + wheelAngle) * sixteenths),
                    static_cast<int>(-wheelAngle * sixteenths));
    if (std::fabs(wheelAngle) > 360) {
        // The part past a whole turn, from the wheel's position back by the overrun.
        QConicalGradient gradient(box.center(), startAngle);
        const bool positive = wheelAngle > 0;
        gradient.setColorAt(0, QColor(static_cast<Qt::GlobalColor>(positive ? 19 : 7)));
        gradient.setColorAt(1, QColor(static_cast<Qt::GlobalColor>(positive ? 7 : 19)));
        painter.setPen(QPen(QBrush(gradient), ringWidth, Qt::SolidLine, Qt::FlatCap));
        const double span = positive ? 360 - wheelAngle : -360 - wheelAngle;
        painter.drawArc(box, static_cast<int>((startAngle + wheelAngle + 360) * sixteenths),
                        static_cast<int>(span * sixteenths));
    }
}

void BaseCarView::DrawKmValue(QPainter& painter)
{
    const QPointF centre = WheelCentre();
    const QRectF box(centre.x() - circleRadius, centre.y() - circleRadius - 6, 2 * circleRadius, 2 * circleRadius);
    painter.setPen(Qt::NoPen);
    painter.setBrush(circleColor);
    painter.drawEllipse(box);
    rviz_plugin::DrawBoxText(painter, box, rviz_plugin::FixedText(speed, 0), valueColor,
                             valueFontSize);
}

void BaseCarView::DrawKm(QPainter& painter)
{
    const QPointF centre = WheelCentre();
    const QRectF box(centre.x() - circleRadius, centre.y() - circleRadius + 16, 2 * circleRadius, 2 * circleRadius);
    rviz_plugin::DrawBoxText(painter, box, "Km/h", kmColor, kmFontSize);
}

void BaseCarView::DrawBar(QPainter& painter, Bar& bar)
{
    DrawRulerBar(painter, bar);
    DrawValueBar(painter, bar);
    DrawGuider(painter, bar);
}

void BaseCarView::DrawRulerBar(QPainter& painter, const Bar& bar)
{
    icons.Render(painter, rulerIcon, QPointF(bar.xOffset, bar.yOffset));
}

void BaseCarView::DrawValueBar(QPainter& painter, const Bar& bar)
{
    const QSizeF ruler = icons.Size(rulerIcon);
    const double height = ValueException(BarValue(bar));
    if (height <= 0) {
        return;
    }
    const double bottom = bar.yOffset + ruler.height() - 6;
    const double x = bar.xOffset + ruler.width() / divisor;
    painter.setPen(QPen(bar.side == 0 ? leftBarColor : rightBarColor, ruler.width(), Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(x, bottom), QPointF(x, bottom - height));
}

double BaseCarView::ValueException(double value) const
{
    return rviz_plugin::ValueException(value, minValue, maxValue);
}

double BaseCarView::GuiderY(const Bar& bar) const
{
    return icons.Size(rulerIcon).height() - 15 - ValueException(BarValue(bar)) + bar.yOffset;
}

void BaseCarView::DrawGuiderTxt(QPainter& painter, const Bar& bar, double y)
{
    if (!dataSeen) {
        return;
    }
    rviz_plugin::DrawBoxText(painter, QRectF(bar.textXOffset, y, 44, 20),
                             QString::number(BarValue(bar), 'f', 1) + "%", fontColor, fontSize);
}

QPointF BaseCarView::WheelCentre() const
{
    // Both coordinates from the width: the wheel is square.
    const double half = wheel.value("width") / divisor;
    return {half + wheel.value("xOffset"), half + wheel.value("yOffset")};
}

QPointF BaseCarView::LeftSignalPoint() const
{
    return {signal.value("leftSignalXOffset") + 5, signal.value("leftSignalYOffset")};
}

QPointF BaseCarView::RightSignalPoint() const
{
    return {signal.value("rightSignalXOffset"), signal.value("rightSignalYOffset")};
}

void BaseCarView::DrawWarnSignal(QPainter& painter)
{
    if (hazardLights == 1) {
        icons.Render(painter, hazardIcon, QPointF(signal.value("signalXOffset") + 3, signal.value("signalYOffset")));
    }
}

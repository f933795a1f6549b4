#include "control_status_panel.h"

ControlStatusPanel::ControlStatusPanel(QWidget* parent) : BaseCarView(parent)
{
    barSection = "ControlInstruction";
    leftBar.upIcon = ":/icons/brakeUpPic.svg";
    leftBar.downIcon = ":/icons/brakeDownPic.svg";
    rightBar.upIcon = ":/icons/gasUpPic.svg";
    rightBar.downIcon = ":/icons/gasDownPic.svg";
}

void ControlStatusPanel::DrawGuider(QPainter& painter, Bar& bar)
{
    const double y = GuiderY(bar);
    UpdateValue(painter, bar, bar.pixXOffset, y, y - 20);
}

void ControlStatusPanel::UpdateValue(QPainter& painter, Bar& bar, double x, double y, double textY)
{
    const double value = BarValue(bar);
    if (value > bar.lastPainted) {
        icons.Render(painter, bar.upIcon, QPointF(x, y));
    } else if (value < bar.lastPainted) {
        icons.Render(painter, bar.downIcon, QPointF(x, y + icons.Size(bar.upIcon).height()));
    }
    bar.lastPainted = value;
    DrawGuiderTxt(painter, bar, textY);
}

void ControlStatusPanel::DrawWarnSignal(QPainter& painter)
{
    BaseCarView::DrawWarnSignal(painter);
    if (turnLight == 1 || turnLight == 3) {
        icons.Render(painter, ":/icons/controlLightSignalPic.svg", LeftSignalPoint());
    }
    if (turnLight == 2 || turnLight == 3) {
        icons.Render(painter, ":/icons/controlRightSignalPic.svg", RightSignalPoint());
    }
}

void ControlStatusPanel::DrawGearStyle(QPainter& painter, ValueState state, QRectF& rect, QString letter)
{
    if (state == ValueState::Choose) {
        icons.RenderIn(painter, ":/icons/gearPic.svg", rect);
    }
    BaseCarView::DrawGearStyle(painter, state, rect, letter);
}

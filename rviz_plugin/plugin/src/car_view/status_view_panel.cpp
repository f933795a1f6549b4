#include "status_view_panel.h"

StatusViewPanel::StatusViewPanel(QWidget* parent) : BaseCarView(parent)
{
    barSection = "CarStatusView";
    leftBar.upIcon = ":/icons/leftGuiderPic.svg";
    rightBar.upIcon = ":/icons/rightGuiderPic.svg";
}

void StatusViewPanel::DrawGuider(QPainter& painter, Bar& bar)
{
    const double y = GuiderY(bar);
    icons.Render(painter, bar.upIcon, QPointF(bar.pixXOffset, y));
    DrawGuiderTxt(painter, bar, y - 20);
}

void StatusViewPanel::DrawWarnSignal(QPainter& painter)
{
    BaseCarView::DrawWarnSignal(painter);
    const bool left = turnLight == 1 || turnLight == 3;
    const bool right = turnLight == 2 || turnLight == 3;
    icons.Render(painter, left ? ":/icons/leftSignalPic.svg" : ":/icons/unLeftSignalPic.svg", LeftSignalPoint());
    icons.Render(painter, right ? ":/icons/rightSignalPic.svg" : ":/icons/unRightSignalPic.svg", RightSignalPoint());
}

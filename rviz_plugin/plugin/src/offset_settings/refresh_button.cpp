#include "refresh_button.h"

namespace rviz_plugin {

RefreshButton::RefreshButton(QWidget* parent) : QToolButton(parent)
{
    setObjectName("RefreshButton");
    setText("Refresh");
    setToolTip("Refresh");
    connect(this, &QToolButton::clicked, this, &RefreshButton::RefreshPage);
}

} // namespace rviz_plugin

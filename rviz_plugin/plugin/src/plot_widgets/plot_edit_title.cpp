#include "plot_edit_title.h"

#include "plot_edit_label.h"

#include "foundation/set_qss.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace rviz_plugin {

PlotEditTitle::PlotEditTitle(const QString& title, QWidget* parent) : QWidget(parent)
{
    setObjectName("plotEditTitle");
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(32);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 8, 0);
    iconLabel = new QLabel(this);
    iconLabel->setObjectName("iconLabel");
    iconLabel->setPixmap(QPixmap(":/plotqrc/assets/image/plot.png"));
    titleEditLabel = new PlotEditLabel(this);
    titleEditLabel->setObjectName("titleEditLabel");
    titleEditLabel->SetEditPolicy(PlotEditPolicy::LabelOnly);
    titleEditLabel->SetTitle(title, true);
    templateButton = new QPushButton(this);
    templateButton->setObjectName("templateButton");
    templateButton->setCheckable(true);
    templateButton->setIcon(QIcon(":/plotqrc/assets/image/template.png"));
    templateButton->setToolTip("Templates");
    closeButton = new QPushButton(this);
    closeButton->setObjectName("closeButton");
    closeButton->setIcon(QIcon(":/plotqrc/assets/image/close.png"));
    layout->addWidget(iconLabel);
    layout->addWidget(titleEditLabel);
    layout->addWidget(templateButton);
    layout->addStretch();
    layout->addWidget(closeButton);
    connect(closeButton, &QPushButton::clicked, this, &PlotEditTitle::SignalCloseButtonClicked);
    connect(templateButton, &QPushButton::clicked, this, [this](bool checked) {
        Q_EMIT SignalTemplateButtonClicked(checked, templateButton->mapToGlobal(QPoint(0, templateButton->height())).x());
    });
    SetQss().SetStyle(this, ":/plotqrc/assets/qss/plot_edit_title.qss");
}

void PlotEditTitle::SetTemplateButtonChecked(bool checked)
{
    templateButton->setChecked(checked);
}

QString PlotEditTitle::GetTitle() const
{
    return titleEditLabel->GetTitle();
}

} // namespace rviz_plugin

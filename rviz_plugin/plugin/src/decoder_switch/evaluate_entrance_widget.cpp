#include "evaluate_entrance_widget.h"

#include "evaluate_dialog.h"

#include "widgets/buttons.h"

#include <QHBoxLayout>

namespace rviz_plugin {

EvaluateEntranceWidget::EvaluateEntranceWidget(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* button = new SecondaryButton("Evaluate", this);
    button->setObjectName("EvaluateEntranceWidget_button");
    button->setToolTip("Evaluate Decoding Performance");
    layout->addWidget(button);
    connect(button, &QPushButton::clicked, this, &EvaluateEntranceWidget::ShowEvaluateDialog);
}

EvaluateEntranceWidget::~EvaluateEntranceWidget()
{
    delete dialog;
}

void EvaluateEntranceWidget::ShowEvaluateDialog()
{
    if (dialog == nullptr) {
        dialog = new EvaluateDialog(window());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    dialog->show();
    dialog->raise();
}

} // namespace rviz_plugin

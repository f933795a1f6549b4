#include "classification_editor.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace rviz_plugin {

ClassificationEditor::ClassificationEditor(QWidget* parent) : QLineEdit(parent)
{
    auto* remove = new QPushButton("Delete", this);
    remove->setObjectName("ClassificationEditor_deleteButton");
    remove->setCursor(Qt::ArrowCursor);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    layout->addWidget(remove);
    setTextMargins(0, 0, remove->sizeHint().width(), 0);
    connect(remove, &QPushButton::clicked, this, &ClassificationEditor::DeleteClicked);
}

} // namespace rviz_plugin

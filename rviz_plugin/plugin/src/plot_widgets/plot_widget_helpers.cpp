#include "plot_widget_helpers.h"

#include "plot_message_box.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QList>
#include <QPushButton>
#include <QSplitter>

namespace rviz_plugin {

bool ShowMsgBox(QWidget& parent)
{
    PlotMessageBox box("Do you want to continue canceling the operation?", &parent);
    return box.exec() == QMessageBox::Yes;
}

void AddCancelSaveButtons(QDialog& dialog, QBoxLayout& layout, QPushButton*& cancel, QPushButton*& save)
{
    auto* buttons = new QHBoxLayout();
    cancel = new QPushButton("Cancel", &dialog);
    save = new QPushButton("Save", &dialog);
    buttons->addStretch();
    buttons->addWidget(cancel);
    buttons->addWidget(save);
    layout.addLayout(buttons);
}

void SetSplitterEqually(QSplitter* splitter)
{
    if (splitter == nullptr || splitter->count() == 0) {
        return;
    }
    const int total = splitter->orientation() == Qt::Horizontal ? splitter->width() : splitter->height();
    const int each = std::max(1, total / splitter->count());
    splitter->setSizes(QList<int>::fromVector(QVector<int>(splitter->count(), each)));
}

} // namespace rviz_plugin

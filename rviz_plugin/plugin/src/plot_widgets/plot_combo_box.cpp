#include "plot_combo_box.h"

#include "plot_item_view.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>

namespace rviz_plugin {

PlotComboBox::PlotComboBox(const QString& label, QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(new QLabel(label, this));
    mainWidget = new QWidget(this);
    mainWidget->setObjectName("mainWidget");
    mainWidget->setAttribute(Qt::WA_StyledBackground);
    mainWidget->setFixedHeight(24);
    mainWidget->installEventFilter(this);
    auto* inner = new QHBoxLayout(mainWidget);
    inner->setContentsMargins(8, 0, 8, 0);
    textLabel = new QLabel(mainWidget);
    inner->addWidget(textLabel, 1);
    inner->addWidget(new QLabel(QString::fromUtf8("\u25BE"), mainWidget));
    layout->addWidget(mainWidget, 1);
    itemView = new PlotItemView();
    itemView->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    itemView->hide();
    connect(itemView, &PlotItemView::SignalItemClicked, this, [this](int, const QString& text) {
        HideItemView();
        SetCurrentText(text);
    });
    SetStyleSheet(false);
    qApp->installEventFilter(this);
}

PlotComboBox::~PlotComboBox()
{
    delete itemView;
}

void PlotComboBox::InitUi(const QStringList& items)
{
    texts = items;
    itemView->SetItems(items);
    if (!items.isEmpty() && textLabel->text().isEmpty()) {
        textLabel->setText(items.front());
    }
}

void PlotComboBox::SetCurrentText(const QString& text)
{
    if (text == textLabel->text()) {
        return;
    }
    textLabel->setText(text);
    Q_EMIT SignalTextChanged(text);
}

QString PlotComboBox::GetCurrentText() const
{
    return textLabel->text();
}

void PlotComboBox::ShowItemView()
{
    itemView->setFixedWidth(mainWidget->width());
    itemView->move(mainWidget->mapToGlobal(QPoint(0, mainWidget->height() + 2)));
    itemView->show();
    itemView->raise();
    SetStyleSheet(true);
}

void PlotComboBox::HideItemView()
{
    itemView->hide();
    SetStyleSheet(false);
}

bool PlotComboBox::IsItemViewVisible() const
{
    return itemView->isVisible();
}

void PlotComboBox::SetStyleSheet(bool focused)
{
    mainWidget->setStyleSheet(QString("QWidget#mainWidget {background:#FFFFFF;border-radius:4px;border:1px solid %1;}")
                                  .arg(focused ? "rgba(51,51,51,1)" : "rgba(217,217,217,1)"));
}

bool PlotComboBox::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress) {
        if (watched == mainWidget) {
            IsItemViewVisible() ? HideItemView() : ShowItemView();
            return true;
        }
        auto* widget = qobject_cast<QWidget*>(watched);
        const bool inList = widget != nullptr && (widget == itemView || itemView->isAncestorOf(widget));
        if (IsItemViewVisible() && !inList) {
            HideItemView();
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace rviz_plugin

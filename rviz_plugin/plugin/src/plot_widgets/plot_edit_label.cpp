#include "plot_edit_label.h"

#include "plot_warn_edit.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace rviz_plugin {

namespace {
const char* const labelStyle =
    "QLabel#editLabel {font-family:Ubuntu; font-size:12px; color:%1; font-weight:400;}";
}

PlotEditLabel::PlotEditLabel(QWidget* parent) : QWidget(parent)
{
    setFixedHeight(height);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    label = new QLabel(this);
    label->setObjectName("editLabel");
    label->setStyleSheet(QString(labelStyle).arg("#333333"));
    label->installEventFilter(this);
    edit = new PlotWarnEdit("Enter a field name", this);
    edit->setObjectName("editEdit");
    edit->GetLineEdit()->installEventFilter(this);
    edit->hide();
    layout->addWidget(label);
    layout->addWidget(edit);
    connect(edit->GetLineEdit(), &QLineEdit::editingFinished, this, &PlotEditLabel::EditFinished);
    connect(edit->GetLineEdit(), &QLineEdit::textEdited, this, &PlotEditLabel::SignalTextEdited);
}

void PlotEditLabel::ShowEdit()
{
    edit->GetLineEdit()->setText(label->text());
    label->hide();
    edit->show();
    edit->GetLineEdit()->setFocus();
    Q_EMIT SignalEditOpened();
}

void PlotEditLabel::ShowLabel()
{
    edit->hide();
    label->show();
}

void PlotEditLabel::EditFinished()
{
    if (!edit->isVisible()) {
        return;
    }
    const QString text = edit->GetLineEdit()->text().trimmed();
    label->setText(text);
    ShowLabel();
    Q_EMIT SignalEditFinished(text);
}

void PlotEditLabel::SetTitle(const QString& text, bool silent)
{
    label->setText(text);
    label->setToolTip(text);
    edit->GetLineEdit()->setText(text);
    if (!silent) {
        Q_EMIT SignalEditFinished(text);
    }
}

QString PlotEditLabel::GetTitle() const
{
    return label->text();
}

void PlotEditLabel::ShowWarning(bool show)
{
    warning = show;
    label->setStyleSheet(QString(labelStyle).arg(show ? "#D93030" : "#333333"));
    edit->GetLineEdit()->setStyleSheet(show ? "color:#D93030;" : QString());
}

void PlotEditLabel::SetVerifyName(const QStringList& names)
{
    edit->SetVerifyNames(names);
}

bool PlotEditLabel::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == label && event->type() == QEvent::MouseButtonPress && editPolicy == PlotEditPolicy::ClickToEdit) {
        ShowEdit();
        return true;
    }
    if (watched == edit->GetLineEdit() && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        ShowLabel();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace rviz_plugin

#include "key_value_item.h"

#include "edit_label.h"
#include "msg_transform_dialog.h"
#include "msg_viewer_panel/msg_record.h"
#include "viewer_style.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace rviz_plugin {

KeyValueItem::KeyValueItem(MsgRecord& record, const std::string& topic, QWidget* parent)
    : QWidget(parent), record(record), topic(topic), keyLabel(new EditLabel(false, this)), valueLabel(new QLabel(this)),
      transformButton(new QPushButton("⇄", this)), blankLabel(new QLabel(this))
{
    setObjectName("keyValueItem");
    setAttribute(Qt::WA_StyledBackground);
    setMinimumWidth(100);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->setSpacing(2);
    layout->addWidget(keyLabel);
    auto* row = new QHBoxLayout();
    valueLabel->setObjectName("valueLabel");
    valueLabel->setMinimumWidth(40);
    row->addWidget(valueLabel, 1);
    transformButton->setFixedSize(18, 18);
    transformButton->setFlat(true);
    transformButton->setToolTip("Convert Constants");
    transformButton->hide();
    row->addWidget(transformButton);
    row->addWidget(blankLabel);
    layout->addLayout(row);
    keyLabel->setStyleSheet("color:#999999;");
    connect(transformButton, &QPushButton::clicked, this, &KeyValueItem::OnConvertConstants);
    ApplyValueStyle();
}

void KeyValueItem::SetKeyText(const QString& text)
{
    keyText = text.toStdString();
    keyLabel->SetDisplayText(text);
}

QString KeyValueItem::GetKeyText() const
{
    return QString::fromStdString(keyText);
}

void KeyValueItem::SetOriginalKey(const QString& key)
{
    originalKey = key;
    keyLabel->SetOriginalKey(key);
}

void KeyValueItem::SetKeyIndex(int index)
{
    keyLabel->SetIndex(index);
}

void KeyValueItem::SetValueText(const std::string& text)
{
    const bool wasColor = valueColor.isValid();
    if (text == valueText && !wasColor && valueLabel->width() == shownWidth) {
        return;  // most ticks: nothing changed
    }
    valueText = text;
    valueColor = QColor();
    shownWidth = valueLabel->width();
    QString shown = QString::fromStdString(text).left(maxTextLength);
    shown = ConvertConstantText(shown, convertConstants);
    valueLabel->setToolTip(ToolTipFeedLine(shown));
    const QFontMetrics metrics(valueLabel->font());
    valueLabel->setText(metrics.horizontalAdvance(shown) > shownWidth
                            ? metrics.elidedText(shown, Qt::ElideRight, shownWidth)
                            : shown);
    if (wasColor) {
        ApplyValueStyle();
    }
}

QString KeyValueItem::GetShownValue() const
{
    return valueLabel->text();
}

QString KeyValueItem::GetValueToolTip() const
{
    return valueLabel->toolTip();
}

void KeyValueItem::SetValueColor(const QColor& color)
{
    if (color == valueColor) {
        return;
    }
    valueColor = color;
    valueLabel->setText(QString());
    valueLabel->setToolTip(ColorToolTip(color));
    ApplyValueStyle();
}

void KeyValueItem::ApplyValueStyle()
{
    if (valueColor.isValid()) {
        valueLabel->setStyleSheet(QString("QLabel{background:%1;}").arg(valueColor.name(QColor::HexArgb)));
        return;
    }
    const bool dark = SchemeOf(backgroundColor) != ViewerScheme::White;
    valueLabel->setStyleSheet(QString("QLabel#valueLabel{background-color:%1;font-family: Ubuntu;font-size: 12px;"
                                      "color: %2;line-height: 16px;font-weight: 400;}")
                                  .arg("transparent", dark ? "#FFFFFF" : "#333333"));
}

void KeyValueItem::ConvertConstants(const ConstantList& constants)
{
    convertConstants = constants;
    if (!valueColor.isValid()) {
        shownWidth = -1;
        SetValueText(valueText);
    }
}

void KeyValueItem::SetBackgroundColor(const QString& color)
{
    backgroundColor = color;
    keyLabel->setStyleSheet(SchemeOf(color) == ViewerScheme::White ? "color:#999999;" : "color:#BBBBBB;");
    ApplyValueStyle();
}

void KeyValueItem::SetAlignment(Qt::Alignment alignment)
{
    valueLabel->setAlignment(alignment | Qt::AlignVCenter);
}

void KeyValueItem::SetHighlighted(bool highlighted)
{
    setStyleSheet(highlighted ? "QWidget#keyValueItem{background-color:#F9DCD0; border:1px solid rgba(239,119,72,1);}"
                              : "QWidget#keyValueItem{background-color:transparent; border:none;}");
}

void KeyValueItem::enterEvent(QEvent* event)
{
    setStyleSheet("QWidget#keyValueItem{background-color:#F9DCD0;}");
    transformButton->setVisible(isNeedConvertConstants);
    QWidget::enterEvent(event);
}

void KeyValueItem::leaveEvent(QEvent* event)
{
    setStyleSheet("QWidget#keyValueItem{background-color:transparent; border:none;}");
    transformButton->hide();
    QWidget::leaveEvent(event);
}

void KeyValueItem::OnConvertConstants()
{
    const auto& constants = record.GetSubscriber().GetHandler().GetData().GetData();
    const auto found = constants.find(topic);
    MsgTransformDialog dialog(0, found == constants.end() ? ConstantList() : SortedConstants(found->second),
                              convertConstants, this);
    connect(&dialog, &MsgTransformDialog::SignalConvertConstants, this, [this](int, const ConstantList& chosen) {
        ConvertConstants(chosen);
        Q_EMIT SignalConfigChanged();
    });
    dialog.exec();
    OnTransformDialogClosed();
}

void KeyValueItem::OnTransformDialogClosed()
{
    transformButton->hide();
}

} // namespace rviz_plugin

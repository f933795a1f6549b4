#ifndef RVIZ_PLUGIN_KEY_VALUE_ITEM_H
#define RVIZ_PLUGIN_KEY_VALUE_ITEM_H

#include "msg_view_models/view_text.h"

#include <QColor>
#include <QWidget>

#include <string>

class QLabel;
class QPushButton;

namespace rviz_plugin {

class EditLabel;
class MsgRecord;

// One cell of a key-value grid: the field's (nick) name over its value, or over its colour.
class KeyValueItem : public QWidget {
    Q_OBJECT
public:
    KeyValueItem(MsgRecord& record, const std::string& topic, QWidget* parent = nullptr);

    void SetKeyText(const QString& text);
    QString GetKeyText() const;
    void SetValueText(const std::string& text);
    std::string GetValueText() const { return valueText; }
    QString GetShownValue() const;
    QString GetValueToolTip() const;
    void SetValueColor(const QColor& color);
    void SetOriginalKey(const QString& key);
    QString GetOriginalKey() const { return originalKey; }
    void SetKeyIndex(int index);
    void SetIsNeedConvertConstants(bool need) { isNeedConvertConstants = need; }
    bool IsNeedConvertConstants() const { return isNeedConvertConstants; }
    const ConstantList& GetConvertConstants() const { return convertConstants; }
    void ConvertConstants(const ConstantList& constants);
    void SetBackgroundColor(const QString& color);
    void SetAlignment(Qt::Alignment alignment);
    EditLabel* GetKeyLabel() const { return keyLabel; }
    void SetHighlighted(bool highlighted);

Q_SIGNALS:
    void SignalConfigChanged();

protected:
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void OnConvertConstants();
    void OnTransformDialogClosed();
    void ApplyValueStyle();

    MsgRecord& record;
    std::string topic;
    QString originalKey;
    std::string keyText;
    std::string valueText;
    EditLabel* keyLabel;
    QLabel* valueLabel;
    QPushButton* transformButton;
    QLabel* blankLabel;
    ConstantList convertConstants;
    bool isNeedConvertConstants = false;
    QString backgroundColor = "white";
    QColor valueColor;
    int shownWidth = -1;  // the label's width when the value was last elided
};

} // namespace rviz_plugin

#endif

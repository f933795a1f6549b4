#ifndef RVIZ_PLUGIN_MSG_TRANSFORM_DIALOG_H
#define RVIZ_PLUGIN_MSG_TRANSFORM_DIALOG_H

#include "msg_view_models/view_text.h"

#include <QDialog>

class QCheckBox;
class QLabel;
class QTableWidget;

namespace rviz_plugin {

// Picks the constants whose names replace the numbers of a column or an item.
class MsgTransformDialog : public QDialog {
    Q_OBJECT
public:
    MsgTransformDialog(int index, const ConstantList& constants, const ConstantList& chosen,
                       QWidget* parent = nullptr);

    void SetAllChecked(bool checked);
    void SetRowChecked(int row, bool checked);
    ConstantList CheckedConstants() const;
    QString HeadText() const;
    Qt::CheckState HeadState() const;
    void Save();

Q_SIGNALS:
    void SignalConvertConstants(int index, const ConstantList& constants);

private:
    void UpdateHead();

    int index;
    ConstantList constants;
    QCheckBox* allBox;
    QLabel* headLabel;
    QTableWidget* table;
    QVector<QCheckBox*> boxes;
    QVector<QLabel*> texts;
};

} // namespace rviz_plugin

#endif

#include "msg_definition_delegate.h"

#include "msg_definition/definition_types.h"
#include "msg_definition/msg_definition_helper.h"

#include <QJsonObject>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>

namespace rviz_plugin {

MsgDefinitionDelegate::MsgDefinitionDelegate(bool isTopicTree, QObject* parent)
    : QItemDelegate(parent), isTopicTree(isTopicTree)
{
    setObjectName(isTopicTree ? "topicDelegate" : "fieldDelegate");
}

QSize MsgDefinitionDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return QSize(QItemDelegate::sizeHint(option, index).width(), 28);
}

QRect MsgDefinitionDelegate::CheckRect(const QStyleOptionViewItem& option) const
{
    return QRect(option.rect.left() + 3 + (isTopicTree ? 4 : 0), option.rect.top() + 6, 15, 15);
}

void MsgDefinitionDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    MsgDefinitionHelper::Get().SaveItemCheckState(index);
    painter->save();
    if (option.state & QStyle::State_Selected) {
        painter->fillRect(option.rect, QColor(255, 207, 179));
    }
    if (index.flags() & Qt::ItemIsUserCheckable) {
        drawCheck(painter, option, CheckRect(option), MapState(index.data(CheckStateValueRole).toInt()));
    }
    const QJsonObject json = index.data(Qt::EditRole).toJsonObject();
    const QString name = json["name"].toString();
    const QString type = json["type"].toString();
    QFont nameFont("Ubuntu");
    nameFont.setPixelSize(12);
    QFont typeFont("PingFangSC-Medium");
    typeFont.setPixelSize(10);
    const QFontMetrics nameMetrics(nameFont);
    const QFontMetrics typeMetrics(typeFont);
    const int left = option.rect.left() + (isTopicTree ? 30 : 24);
    const int available = 334;
    QString shownName = name;
    if (nameMetrics.horizontalAdvance(name) + 7 + typeMetrics.horizontalAdvance(type) > available) {
        shownName = nameMetrics.elidedText(name, Qt::ElideRight, available - (isTopicTree ? 20 : 70));
    }
    const int top = option.rect.top() + 7;
    painter->setFont(nameFont);
    painter->setPen(QColor(51, 51, 51));
    const int nameWidth = nameMetrics.horizontalAdvance(shownName);
    painter->drawText(QRect(left, top, nameWidth, nameMetrics.height()), Qt::AlignLeft | Qt::AlignVCenter, shownName);
    painter->setFont(typeFont);
    painter->setPen(QColor(153, 153, 153));
    const int typeLeft = left + nameWidth + 7;
    const int typeWidth = std::max(0, option.rect.right() - typeLeft);
    painter->drawText(QRect(typeLeft, top + 1, typeWidth, nameMetrics.height()), Qt::AlignLeft | Qt::AlignVCenter,
                      typeMetrics.elidedText(type, Qt::ElideRight, typeWidth));
    painter->setPen(QColor(230, 230, 230));
    painter->drawLine(option.rect.left(), option.rect.bottom(), option.rect.right(), option.rect.bottom());
    painter->restore();
}

void MsgDefinitionDelegate::drawCheck(QPainter* painter, const QStyleOptionViewItem& option, const QRect& rect,
                                      Qt::CheckState state) const
{
    QItemDelegate::drawCheck(painter, option, rect, state);
    const int itemState = MsgDefinitionHelper::Get().GetItemCheckState();
    if (!IsDisabledState(itemState)) {
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (state == Qt::Unchecked) {
        painter->setPen(QPen(QColor(194, 194, 194), 1));
        painter->setBrush(QColor(237, 234, 229));
        painter->drawRect(rect.adjusted(0, 0, -1, -1));
    } else {
        painter->setPen(QPen(QColor(194, 194, 194), 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(rect.adjusted(1, 1, -1, -1), 2, 2);
    }
    painter->restore();
}

bool MsgDefinitionDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                                        const QModelIndex& index)
{
    if (!(index.flags() & Qt::ItemIsUserCheckable) || !(index.flags() & Qt::ItemIsEnabled)) {
        return false;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::LeftButton || !CheckRect(option).adjusted(-2, -2, 2, 2).contains(mouse->pos())) {
            return false;
        }
        const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        return model->setData(index, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    }
    return event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick
               ? CheckRect(option).contains(static_cast<QMouseEvent*>(event)->pos())
               : false;
}

} // namespace rviz_plugin

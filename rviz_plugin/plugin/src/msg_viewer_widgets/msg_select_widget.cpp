#include "msg_select_widget.h"

#include "msg_definition/msg_definition_filter_model.h"
#include "msg_definition/msg_definition_model_mgr.h"
#include "msg_definition_delegate.h"
#include "msg_definition_header.h"
#include "msg_empty_widget.h"
#include "msg_search_dialog.h"
#include "msg_viewer_panel/viewer_log.h"
#include "viewer_style.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QJsonObject>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>

#include <memory>

namespace rviz_plugin {

namespace {

QStackedWidget* MakeStack(QTreeView* tree, QWidget* parent)
{
    auto* stack = new QStackedWidget(parent);
    stack->addWidget(new MsgEmptyWidget(stack));
    stack->addWidget(tree);
    stack->setFixedSize(350, 422);
    return stack;
}

} // namespace

MsgSelectWidget::MsgSelectWidget(QWidget* parent)
    : QWidget(parent), nameEdit(new QLineEdit(this)), topicHeader(new MsgDefinitionHeader("topicHeader", this)),
      fieldHeader(new MsgDefinitionHeader("fieldHeader", this)), topicTree(new QTreeView()), fieldTree(new QTreeView()),
      cancelButton(new QPushButton("Cancel", this)), saveButton(new QPushButton("Save", this))
{
    setObjectName("msgSelectWidget");
    setAttribute(Qt::WA_StyledBackground);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 12, 16, 12);
    auto* nameRow = new QHBoxLayout();
    nameRow->addWidget(new QLabel("Panel Name", this));
    nameEdit->setObjectName("panelNameEdit");
    nameEdit->setPlaceholderText("  Type to set panel name");
    nameEdit->setMaxLength(120);
    nameRow->addWidget(nameEdit, 1);
    layout->addLayout(nameRow);
    auto* hint = new QLabel("Select data to show in the panel (A table can have up to 15 columns and 100 rows. A "
                            "maximum of 50 key-value pairs can be selected.You'd better not add more than 5 panels)",
                            this);
    hint->setObjectName("hintLabel");
    hint->setWordWrap(true);
    layout->addWidget(hint);
    topicTree->setObjectName("topicTree");
    topicTree->setRootIsDecorated(false);
    fieldTree->setObjectName("fieldTree");
    for (QTreeView* tree : {topicTree, fieldTree}) {
        tree->setHeaderHidden(true);
        tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
        tree->setItemDelegate(new MsgDefinitionDelegate(tree == topicTree, tree));
        tree->setUniformRowHeights(true);
    }
    topicStack = MakeStack(topicTree, this);
    fieldStack = MakeStack(fieldTree, this);
    auto* sides = new QHBoxLayout();
    auto* left = new QVBoxLayout();
    left->setSpacing(0);
    left->addWidget(topicHeader);
    left->addWidget(topicStack);
    auto* right = new QVBoxLayout();
    right->setSpacing(0);
    right->addWidget(fieldHeader);
    right->addWidget(fieldStack);
    sides->addLayout(left);
    sides->addLayout(right);
    layout->addLayout(sides);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    cancelButton->setObjectName("cancelButton");
    saveButton->setObjectName("saveButton");
    buttons->addWidget(cancelButton);
    buttons->addWidget(saveButton);
    layout->addLayout(buttons);
    ApplyViewerStyle(this, ":/definitionqrc/qss/msg_definition_main.qss");
}

bool MsgSelectWidget::Initialize(MsgDefinitionModelMgr* mgr)
{
    if (mgr == nullptr || mgr->GetModel(TopicModelType) == nullptr) {
        ViewerLog("Failed to init selection widget");
        return false;
    }
    manager = mgr;
    topicProxy = new QSortFilterProxyModel(this);
    topicProxy->setFilterRole(FilterKeyRole);
    topicProxy->setFilterKeyColumn(0);
    topicProxy->setFilterCaseSensitivity(Qt::CaseSensitive);
    topicProxy->setSourceModel(manager->GetModel(TopicModelType));
    fieldProxy = new MsgDefinitionFilterModel(this);
    fieldProxy->setSourceModel(manager->GetModel(FieldModelType));
    topicTree->setModel(topicProxy);
    fieldTree->setModel(fieldProxy);
    connect(manager->GetModel(TopicModelType), &QStandardItemModel::itemChanged, this, &MsgSelectWidget::SlotSelectTopic);
    connect(manager->GetModel(FieldModelType), &QStandardItemModel::itemChanged, this, &MsgSelectWidget::SlotSelectField);
    connect(topicTree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MsgSelectWidget::SlotCurrentChanged);
    connect(manager, &MsgDefinitionModelMgr::SignalModelChanged, this, &MsgSelectWidget::SlotTopicChanged);
    connect(topicHeader->GetCheckBox(), &QCheckBox::stateChanged, this, &MsgSelectWidget::SlotTopicHeaderState);
    connect(fieldHeader->GetCheckBox(), &QCheckBox::stateChanged, this, &MsgSelectWidget::SlotFieldHeaderState);
    connect(topicHeader->GetIconButton(), &QPushButton::clicked, this, [this]() { ExecuteSearchDialog(true); });
    connect(fieldHeader->GetIconButton(), &QPushButton::clicked, this, [this]() { ExecuteSearchDialog(false); });
    return true;
}

void MsgSelectWidget::ResetUi()
{
    nameEdit->clear();
    focusTopic.clear();
    expandList.clear();
    topicStack->setCurrentIndex(1);
    fieldStack->setCurrentIndex(1);
    UpdateAllHeader();
}

void MsgSelectWidget::SetPanelName(const QString& name)
{
    nameEdit->setText(name);
}

QString MsgSelectWidget::GetPanelName() const
{
    return nameEdit->text();
}

void MsgSelectWidget::SetEditFieldSearchStatus(const QMap<QString, QString>& searchMap)
{
    fieldSearchMap = searchMap;
}

void MsgSelectWidget::ClearSearchStatus(bool alsoFields)
{
    topicSearch.clear();
    topicHeader->SetSearchActive(false);
    if (topicProxy != nullptr) {
        topicProxy->setFilterFixedString(QString());
    }
    if (alsoFields) {
        fieldSearchMap.clear();
        fieldHeader->SetSearchActive(false);
        if (fieldProxy != nullptr) {
            fieldProxy->SetKeyword(QString());
        }
    }
}

void MsgSelectWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Enter || event->key() == Qt::Key_Return) {
        return;
    }
    QWidget::keyPressEvent(event);
}

QModelIndex MsgSelectWidget::CurrentTopicSource() const
{
    return topicProxy->mapToSource(topicTree->currentIndex());
}

void MsgSelectWidget::SyncCheckState(QStandardItem* item)
{
    const bool blocked = manager->IsBlockStateChangedEvent();
    manager->BlockStateChangedEvent(true);
    item->setCheckState(MapState(item->data(CheckStateValueRole).toInt()));
    manager->BlockStateChangedEvent(blocked);
}

void MsgSelectWidget::SlotSelectField(QStandardItem* item)
{
    if (manager->IsBlockStateChangedEvent() || focusTopic.isEmpty() || item == nullptr) {
        return;
    }
    const int stored = item->data(CheckStateValueRole).toInt();
    if (IsDisabledState(stored) || !item->isCheckable()) {
        SyncCheckState(item);
        return;
    }
    int state = item->checkState() == Qt::Checked ? Checked : Unchecked;
    if (stored == PartiallyChecked && state == Checked) {
        state = Unchecked;
    }
    const int oldMode = manager->GetCurrentEditMode();
    const QModelIndex index = fieldProxy->mapFromSource(item->index());
    if (item->hasChildren()) {
        manager->SetSubFieldState(focusTopic, state, fieldProxy, index);
    } else {
        manager->SetFieldState(focusTopic, state, fieldProxy, index);
    }
    QAbstractItemModel* topics = manager->GetModel(TopicModelType);
    manager->SetTopicItemState(CurrentTopicSource(), manager->GetModel(FieldModelType));
    manager->UpdateAllTopicState(topics, oldMode, CurrentTopicSource());
    UpdateAllHeader();
}

void MsgSelectWidget::SlotSelectTopic(QStandardItem* item)
{
    if (manager->IsBlockStateChangedEvent() || item == nullptr) {
        return;
    }
    const int stored = item->data(CheckStateValueRole).toInt();
    if (IsDisabledState(stored)) {
        SyncCheckState(item);
        return;
    }
    int state = item->checkState() == Qt::Checked ? Checked : Unchecked;
    if (stored == PartiallyChecked && state == Checked) {
        state = Unchecked;
    }
    topicTree->setCurrentIndex(topicProxy->mapFromSource(item->index()));
    if (focusTopic.isEmpty()) {
        ViewerLog("Failed to set focus topic");
        SyncCheckState(item);
        return;
    }
    const int oldMode = manager->GetCurrentEditMode();
    manager->SetAllSubFieldState(focusTopic, state, fieldProxy);
    manager->SetTopicItemState(item->index(), manager->GetModel(FieldModelType));
    manager->UpdateAllTopicState(manager->GetModel(TopicModelType), oldMode, item->index());
    UpdateAllHeader();
}

void MsgSelectWidget::RecoverFocusFields()
{
    QStandardItemModel* fields = manager->GetModel(FieldModelType);
    manager->RecoverFieldItems(focusTopic, manager->GetDisableType(focusTopic), fields, QModelIndex());
    manager->RecoverFields(fields, QModelIndex());
}

void MsgSelectWidget::SlotCurrentChanged(const QModelIndex& current, const QModelIndex& /*previous*/)
{
    if (!current.isValid() || current.column() != 0) {
        ViewerLog("Ignore invalid topic item");
        return;
    }
    const QString name = current.data(Qt::EditRole).toJsonObject()["name"].toString();
    if (name == focusTopic) {
        ViewerLog("Same focus name, ignore it", Orsa::LogLevel::Info);
        return;
    }
    focusTopic = name;
    manager->SetFocusTopic(name);
    expandList.clear();
    manager->RebuildFieldModel(focusTopic);
    const QString term = fieldSearchMap.value(focusTopic);
    fieldProxy->SetKeyword(term);
    fieldHeader->SetSearchActive(!term.isEmpty());
    fieldStack->setCurrentIndex(fieldProxy->rowCount() > 0 ? 1 : 0);
    RecoverFocusFields();
    if (!term.isEmpty()) {
        ApplyExpandList();
    }
    UpdateAllHeader();
}

int MsgSelectWidget::RecoverFieldForTopic(const QString& topic, bool useNewModel, int state, bool setAll)
{
    std::unique_ptr<QStandardItemModel> ownModel;
    std::unique_ptr<MsgDefinitionFilterModel> ownFilter;
    QStandardItemModel* model = manager->GetModel(FieldModelType);
    QAbstractItemModel* filtered = fieldProxy;
    if (useNewModel) {
        ownModel.reset(manager->BuildFieldModel(topic));
        if (!ownModel) {
            return DisabledUnchecked;
        }
        ownFilter = std::make_unique<MsgDefinitionFilterModel>();
        ownFilter->setSourceModel(ownModel.get());
        ownFilter->SetKeyword(fieldSearchMap.value(topic));
        model = ownModel.get();
        filtered = ownFilter.get();
    }
    manager->RecoverFieldItems(topic, manager->GetDisableType(topic), model, QModelIndex());
    int result = manager->RecoverFields(model, QModelIndex());
    if (setAll) {
        manager->SetAllSubFieldState(topic, state, filtered);
        result = manager->RecoverFields(model, QModelIndex());
    }
    return result;
}

void MsgSelectWidget::SlotTopicChanged(const QModelIndex& /*parent*/, int first, int last, const QString& focusName)
{
    const QString name = focusName.isEmpty() ? focusTopic : focusName;
    if (!name.isEmpty() && !topicTree->currentIndex().isValid()) {
        QModelIndex row = topicProxy->index(0, 0);
        for (int at = 0; at < topicProxy->rowCount(); ++at) {
            const QModelIndex index = topicProxy->index(at, 0);
            if (index.data(Qt::EditRole).toJsonObject()["name"].toString() == name) {
                row = index;
                break;
            }
        }
        topicTree->setCurrentIndex(row);
    }
    QStandardItemModel* topics = manager->GetModel(TopicModelType);
    for (int at = first; at <= last; ++at) {
        const QModelIndex source = topics->index(at, 0);
        if (!topicProxy->mapFromSource(source).isValid()) {
            continue;
        }
        const QString topic = source.data(Qt::EditRole).toJsonObject()["name"].toString();
        manager->SetTopicState(topics, source, RecoverFieldForTopic(topic, topic != focusTopic, Unchecked, false));
    }
    manager->UpdateAllTopicStateForce(topics, CurrentTopicSource());
    UpdateAllHeader();
}

int MsgSelectWidget::HeaderClickState(MsgDefinitionHeader* header, int state) const
{
    const int before = header == topicHeader ? topicHeaderState : fieldHeaderState;
    if (state == Qt::PartiallyChecked || (state == Qt::Checked && before == Qt::PartiallyChecked)) {
        return before == Qt::PartiallyChecked ? Unchecked : Checked;
    }
    return state == Qt::Checked ? Checked : Unchecked;
}

void MsgSelectWidget::SlotTopicHeaderState(int clicked)
{
    const int state = HeaderClickState(topicHeader, clicked);
    QStandardItemModel* topics = manager->GetModel(TopicModelType);
    const QModelIndex current = CurrentTopicSource();
    for (int row = 0; row < topicProxy->rowCount(); ++row) {
        const QModelIndex source = topicProxy->mapToSource(topicProxy->index(row, 0));
        const QString topic = source.data(Qt::EditRole).toJsonObject()["name"].toString();
        manager->SetTopicState(topics, source, RecoverFieldForTopic(topic, source.row() != current.row(), state, true));
    }
    if (!focusTopic.isEmpty()) {
        manager->SetTopicState(topics, current, RecoverFieldForTopic(focusTopic, false, state, false));
    }
    manager->UpdateAllTopicStateForce(topics, current);
    UpdateAllHeader();
}

void MsgSelectWidget::SlotFieldHeaderState(int clicked)
{
    if (focusTopic.isEmpty()) {
        UpdateAllHeader();
        return;
    }
    const int state = HeaderClickState(fieldHeader, clicked);
    const int oldMode = manager->GetCurrentEditMode();
    manager->SetAllSubFieldState(focusTopic, state, fieldProxy);
    manager->SetTopicItemState(CurrentTopicSource(), manager->GetModel(FieldModelType));
    manager->UpdateAllTopicState(manager->GetModel(TopicModelType), oldMode, CurrentTopicSource());
    UpdateAllHeader();
}

void MsgSelectWidget::UpdateHeader(MsgDefinitionHeader* header, const QString& title, const QAbstractItemModel* model)
{
    int checked = 0;
    int partial = 0;
    int total = 0;
    MsgDefinitionModelMgr::GetModelCount(checked, partial, total, model, QModelIndex());
    QCheckBox* box = header->GetCheckBox();
    const bool blocked = box->blockSignals(true);
    int state = Qt::Unchecked;
    if (!MsgDefinitionModelMgr::FindEnableItem(model, QModelIndex())) {
        box->setEnabled(false);
    } else {
        box->setEnabled(true);
        state = total > 0 && checked == total ? Qt::Checked : (checked + partial > 0 ? Qt::PartiallyChecked : Qt::Unchecked);
    }
    box->setCheckState(static_cast<Qt::CheckState>(state));
    box->blockSignals(blocked);
    (header == topicHeader ? topicHeaderState : fieldHeaderState) = state;
    header->GetLabel()->setText(title + QString("(%1/%2)").arg(checked + partial).arg(total));
}

void MsgSelectWidget::UpdateAllHeader()
{
    if (manager == nullptr) {
        return;
    }
    UpdateHeader(topicHeader, "Select Topics [Type]", topicProxy);
    UpdateHeader(fieldHeader, "Select Fields [Type]", fieldProxy);
    saveButton->setEnabled(manager->GetSelectedFieldCount() >= 1);
}

void MsgSelectWidget::ApplyExpandList()
{
    for (const QPersistentModelIndex& index : expandList) {
        fieldTree->collapse(fieldProxy->mapFromSource(index));
    }
    std::vector<QModelIndex> rows;
    fieldProxy->GetExpandList(rows);
    expandList.assign(rows.begin(), rows.end());
    for (const QModelIndex& index : rows) {
        fieldTree->expand(fieldProxy->mapFromSource(index));
    }
}

void MsgSelectWidget::ExecuteSearchDialog(bool topicSide)
{
    MsgSearchDialog dialog(topicSide ? topicSearch : fieldSearchMap.value(focusTopic), this);
    dialog.move(mapToGlobal(QPoint(0, 0)) + (topicSide ? QPoint(345, 140) : QPoint(695, 140)));
    if (dialog.exec() == QDialog::Accepted) {
        if (topicSide) {
            SearchTopic(dialog.GetText());
        } else {
            SearchField(dialog.GetText());
        }
    }
    (topicSide ? topicHeader : fieldHeader)
        ->SetSearchActive(!(topicSide ? topicSearch : fieldSearchMap.value(focusTopic)).isEmpty());
}

void MsgSelectWidget::SearchTopic(const QString& text)
{
    if (text == topicSearch) {
        return;
    }
    topicSearch = text;
    topicHeader->SetSearchActive(!text.isEmpty());
    topicProxy->setFilterFixedString(text);
    if (topicProxy->rowCount() > 0) {
        topicStack->setCurrentIndex(1);
    } else {
        topicStack->setCurrentIndex(0);
        fieldStack->setCurrentIndex(1);
        manager->ResetFieldModel();
        focusTopic.clear();
        manager->SetFocusTopic(QString());
        expandList.clear();
    }
    manager->UpdateAllTopicStateForce(manager->GetModel(TopicModelType), CurrentTopicSource());
    UpdateAllHeader();
}

void MsgSelectWidget::SearchField(const QString& text)
{
    if (focusTopic.isEmpty() || text == fieldSearchMap.value(focusTopic)) {
        return;
    }
    fieldSearchMap[focusTopic] = text;
    fieldHeader->SetSearchActive(!text.isEmpty());
    fieldProxy->SetKeyword(text);
    if (fieldProxy->rowCount() == 0) {
        fieldStack->setCurrentIndex(0);
    } else {
        fieldStack->setCurrentIndex(1);
        ApplyExpandList();
    }
    RecoverFocusFields();
    manager->SetTopicItemState(CurrentTopicSource(), manager->GetModel(FieldModelType));
    UpdateAllHeader();
}

} // namespace rviz_plugin

#ifndef RVIZ_PLUGIN_MSG_SELECT_WIDGET_H
#define RVIZ_PLUGIN_MSG_SELECT_WIDGET_H

#include <QMap>
#include <QModelIndex>
#include <QPersistentModelIndex>
#include <QWidget>

#include <vector>

class QLineEdit;
class QPushButton;
class QSortFilterProxyModel;
class QStackedWidget;
class QStandardItem;
class QTreeView;

namespace rviz_plugin {

class MsgDefinitionFilterModel;
class MsgDefinitionHeader;
class MsgDefinitionModelMgr;

// The selection dialog's content: the panel's name, the live topics on the left, the focused topic's
// fields on the right, each with a tick for all and a search, and "Cancel" and "Save".
class MsgSelectWidget : public QWidget {
    Q_OBJECT
public:
    explicit MsgSelectWidget(QWidget* parent = nullptr);

    bool Initialize(MsgDefinitionModelMgr* manager);
    void ResetUi();
    void SetPanelName(const QString& name);
    QString GetPanelName() const;
    QMap<QString, QString> GetFieldSearchMap() const { return fieldSearchMap; }
    void SetEditFieldSearchStatus(const QMap<QString, QString>& searchMap);
    void ClearSearchStatus(bool alsoFields);
    QPushButton* GetCancelButton() const { return cancelButton; }
    QPushButton* GetSaveButton() const { return saveButton; }
    QTreeView* GetTopicTree() const { return topicTree; }
    QTreeView* GetFieldTree() const { return fieldTree; }
    MsgDefinitionHeader* GetTopicHeader() const { return topicHeader; }
    MsgDefinitionHeader* GetFieldHeader() const { return fieldHeader; }
    QSortFilterProxyModel* GetTopicProxy() const { return topicProxy; }
    MsgDefinitionFilterModel* GetFieldProxy() const { return fieldProxy; }
    QString GetFocusTopic() const { return focusTopic; }
    void SearchTopic(const QString& text);
    void SearchField(const QString& text);

public Q_SLOTS:
    void SlotSelectTopic(QStandardItem* item);
    void SlotSelectField(QStandardItem* item);
    void SlotCurrentChanged(const QModelIndex& current, const QModelIndex& previous);
    void SlotTopicChanged(const QModelIndex& parent, int first, int last, const QString& focusName);
    void SlotTopicHeaderState(int state);
    void SlotFieldHeaderState(int state);
    void ExecuteSearchDialog(bool topicSide);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QModelIndex CurrentTopicSource() const;
    int RecoverFieldForTopic(const QString& topic, bool useNewModel, int state, bool setAll);
    void SyncCheckState(QStandardItem* item);
    void RecoverFocusFields();
    void UpdateAllHeader();
    void UpdateHeader(MsgDefinitionHeader* header, const QString& title, const QAbstractItemModel* model);
    void ApplyExpandList();
    int HeaderClickState(MsgDefinitionHeader* header, int state) const;

    MsgDefinitionModelMgr* manager = nullptr;
    QLineEdit* nameEdit;
    MsgDefinitionHeader* topicHeader;
    MsgDefinitionHeader* fieldHeader;
    QStackedWidget* topicStack;
    QStackedWidget* fieldStack;
    QTreeView* topicTree;
    QTreeView* fieldTree;
    QPushButton* cancelButton;
    QPushButton* saveButton;
    QSortFilterProxyModel* topicProxy = nullptr;
    MsgDefinitionFilterModel* fieldProxy = nullptr;
    QString focusTopic;
    QString topicSearch;
    QMap<QString, QString> fieldSearchMap;
    std::vector<QPersistentModelIndex> expandList;
    int topicHeaderState = 0;
    int fieldHeaderState = 0;
};

} // namespace rviz_plugin

#endif

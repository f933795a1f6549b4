#ifndef RVIZ_PLUGIN_EDIT_LABEL_H
#define RVIZ_PLUGIN_EDIT_LABEL_H

#include <QWidget>

class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QStackedWidget;
class QToolButton;

namespace rviz_plugin {

// A name that the user can rename in place: a table's header cell (with the column menu) or a
// key-value item's key. Shows the last path component of a path, elided to its width.
class EditLabel : public QWidget {
    Q_OBJECT
public:
    explicit EditLabel(bool withMenu, QWidget* parent = nullptr);

    void SetIndex(int index) { editIndex = index; }
    int GetIndex() const { return editIndex; }
    void SetOriginalKey(const QString& key);
    QString GetOriginalKey() const { return originalKey; }
    void SetDisplayText(const QString& text);
    QString GetDisplayText() const { return displayText; }
    void SetStyleSheet(const QString& backgroundColor);

    // The column menu by the field's type: integers get everything, floats sorting only.
    void InitMenuType(const QString& type);
    void SetSortEnabled(bool enabled);
    void SetBlankEnabled(bool enabled);
    bool IsInt() const { return isInt; }
    bool IsShowBlank() const { return isShowBlank; }
    void ResetBlank();
    QMenu* GetMenu() const { return menu; }
    void StartEdit();

Q_SIGNALS:
    void TextEdited(int index, const QString& text);
    void DeleteClicked(int index);
    void BlankToggled(int index, bool show, bool ascending);
    void SortClicked(int index, bool ascending);
    void ConvertClicked(int index);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    void EditFinished();
    void Refresh();

    QStackedWidget* stack;
    QLabel* label;
    QLineEdit* edit;
    QToolButton* menuButton = nullptr;
    QMenu* menu = nullptr;
    QAction* blankAction = nullptr;
    QAction* ascendingAction = nullptr;
    QAction* descendingAction = nullptr;
    QAction* convertAction = nullptr;
    int editIndex = 0;
    QString originalKey;
    QString displayText;
    bool isInt = false;
    bool isNumber = false;
    bool isShowBlank = false;
    bool isAscending = true;
};

} // namespace rviz_plugin

#endif

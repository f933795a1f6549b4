#ifndef RVIZ_PLUGIN_MSG_VIEWER_PANEL_H
#define RVIZ_PLUGIN_MSG_VIEWER_PANEL_H

#include <QVector>
#include <QWidget>

class QButtonGroup;
class QCheckBox;
class QPushButton;
class QVBoxLayout;

namespace rviz_plugin {

// The viewer's settings column: background colour, alignment, and a row for each user panel with a
// check box (shown or not), "Edit" and "Remove"; "Add Panel" below.
class MsgViewerPanel : public QWidget {
    Q_OBJECT
public:
    explicit MsgViewerPanel(QWidget* parent = nullptr);

    void OnInitialize();
    void AddPanel(const QString& name, bool checked);
    void RenamePanel(int index, const QString& name);
    void ChangeCheckBoxText(int index, const QString& name);
    bool IsChecked(int index) const;
    QCheckBox* GetCheckBox(int index) const;
    int GetPanelCount() const { return checkBoxes.size(); }
    void SetCheckBoxState(int index, bool checked);
    void SetColorAndAlignmentButtonClicked(const QString& color, int alignment);
    QPushButton* GetAddPanelButton() const { return addPanelButton; }
    QPushButton* GetEditButton(int index) const { return editButtons.value(index); }
    QPushButton* GetRemoveButton(int index) const { return removeButtons.value(index); }
    QPushButton* GetColorButton(const QString& color) const;
    QPushButton* GetAlignmentButton(int alignment) const;

Q_SIGNALS:
    void DisplayPanel(int index, bool visible);
    void RemoveSelectMsg(int index);
    void EditSelectMsg(int index, const QString& name);
    void SigBackgroudColorChange(const QString& color);
    void SetAlignment(const Qt::Alignment& alignment);
    void SignalUpdateRecord(int index, bool checked);

private:
    void SetCheckBoxText(QCheckBox* box, const QString& name);
    void ShowDisplayView(int state);
    void RemovePanel();
    void EditPanel();
    void ResetPosition();
    void SlotChangeColor();

    QVBoxLayout* rowsLayout = nullptr;
    QVector<QWidget*> rows;
    QVector<QCheckBox*> checkBoxes;
    QVector<QPushButton*> editButtons;
    QVector<QPushButton*> removeButtons;
    QVector<QPushButton*> colorButtons;
    QVector<QPushButton*> alignmentButtons;
    QPushButton* addPanelButton = nullptr;
};

} // namespace rviz_plugin

#endif

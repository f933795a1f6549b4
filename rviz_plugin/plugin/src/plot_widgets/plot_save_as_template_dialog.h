#ifndef RVIZ_PLUGIN_PLOT_SAVE_AS_TEMPLATE_DIALOG_H
#define RVIZ_PLUGIN_PLOT_SAVE_AS_TEMPLATE_DIALOG_H

#include <QDialog>
#include <QStringList>

class QPushButton;

namespace rviz_plugin {

class PlotWarnEdit;

// "Save As Template": a name that is neither empty nor in use.
class PlotSaveAsTemplateDialog : public QDialog {
    Q_OBJECT
public:
    explicit PlotSaveAsTemplateDialog(QWidget* parent = nullptr);

    // The proposed name and the names in use.
    void SetNames(const QString& proposed, const QStringList& names);
    void ClearWarning();
    PlotWarnEdit* GetEdit() const { return edit; }
    QPushButton* GetSaveButton() const { return saveBtn; }

Q_SIGNALS:
    void SignalSaveBtnClicked(const QString& name);

private Q_SLOTS:
    void SlotSaveClicked();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    PlotWarnEdit* edit = nullptr;
    QPushButton* saveBtn = nullptr;
};

} // namespace rviz_plugin

#endif

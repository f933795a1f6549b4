#ifndef RVIZ_PLUGIN_PLOT_TEMPLATE_SETTINGS_DIALOG_H
#define RVIZ_PLUGIN_PLOT_TEMPLATE_SETTINGS_DIALOG_H

#include <QDialog>
#include <QMap>
#include <QStringList>
#include <QVector>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace rviz_plugin {

class PlotSettingsItem;

// "Template Settings": rename or delete the user's templates.
class PlotTemplateSettingsDialog : public QDialog {
    Q_OBJECT
public:
    explicit PlotTemplateSettingsDialog(QWidget* parent = nullptr);

    void UpdateTemplateNames(const QStringList& names);
    const QVector<PlotSettingsItem*>& GetItems() const { return items; }
    QPushButton* GetSaveButton() const { return saveBtn; }
    bool IsEmptyShown() const;

Q_SIGNALS:
    void SignalSettingsSaveButtonClicked(const QMap<QString, QString>& renamed);
    void SignalDeleteButtonClicked(const QString& name);

private Q_SLOTS:
    void SlotTextChanged();
    void SlotWarningStatusChanged();
    void SlotDeletedButtonClicked(PlotSettingsItem* item);
    void SlotSaveClicked();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void UpdateVerifyNames();
    QMap<QString, QString> ChangedNames() const;

    QVector<PlotSettingsItem*> items;
    QVBoxLayout* listLayout = nullptr;
    QLabel* emptyLabel = nullptr;
    QPushButton* saveBtn = nullptr;
    bool saving = false;
};

} // namespace rviz_plugin

#endif

#ifndef RVIZ_PLUGIN_SETTING_WIDGET_H
#define RVIZ_PLUGIN_SETTING_WIDGET_H

#include <QDialog>

class QLineEdit;
class QSpinBox;

namespace rviz_plugin {

// The capture's settings: how many frames a multi-frame capture takes, and where exports go.
class SettingWidget : public QDialog {
    Q_OBJECT

public:
    explicit SettingWidget(QWidget* parent = nullptr);
    void SetValues(int captureNumber, const QString& exportPath);
    int GetCaptureNumber() const;
    QString GetExportPath() const;
    QSpinBox* GetNumberBox() const { return numberBox; }
    QLineEdit* GetPathEdit() const { return pathEdit; }

private:
    QSpinBox* numberBox = nullptr;
    QLineEdit* pathEdit = nullptr;
};

} // namespace rviz_plugin

#endif

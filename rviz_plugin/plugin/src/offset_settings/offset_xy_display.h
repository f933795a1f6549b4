#ifndef RVIZ_PLUGIN_OFFSET_XY_DISPLAY_H
#define RVIZ_PLUGIN_OFFSET_XY_DISPLAY_H

#include <QWidget>

#include <string>

class QLabel;
class QLineEdit;

namespace rviz_plugin {

// "X:" or "Y:" and the value of one offset parameter, read-only.
class OffsetXyDisplay : public QWidget {
    Q_OBJECT
public:
    OffsetXyDisplay(const QString& label, std::string parameter, QWidget* parent = nullptr);
    // Reads the parameter and shows it; a failed read leaves the value as it was.
    void SetOffsetValue();
    QString GetText() const;

private:
    std::string parameter;
    QLineEdit* value = nullptr;
};

} // namespace rviz_plugin

#endif

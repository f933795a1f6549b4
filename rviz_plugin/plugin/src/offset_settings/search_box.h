#ifndef RVIZ_PLUGIN_SEARCH_BOX_H
#define RVIZ_PLUGIN_SEARCH_BOX_H

#include <QWidget>

class QLineEdit;
class QToolButton;

namespace rviz_plugin {

// A search text applied on return or with its button.
class SearchBox : public QWidget {
    Q_OBJECT
public:
    explicit SearchBox(QWidget* parent = nullptr);
    void Clear();
    QString GetText() const;

Q_SIGNALS:
    void Search(const QString& text);

private:
    QLineEdit* edit = nullptr;
    QToolButton* button = nullptr;
};

} // namespace rviz_plugin

#endif

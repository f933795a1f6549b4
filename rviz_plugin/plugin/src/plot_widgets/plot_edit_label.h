#ifndef RVIZ_PLUGIN_PLOT_EDIT_LABEL_H
#define RVIZ_PLUGIN_PLOT_EDIT_LABEL_H

#include <QStringList>
#include <QWidget>

class QLabel;

namespace rviz_plugin {

class PlotWarnEdit;

// Whether a click on the label opens the edit.
enum class PlotEditPolicy { ClickToEdit, LabelOnly };

// A label that turns into an edit: the field of a line, the X field, a plot's title.
class PlotEditLabel : public QWidget {
    Q_OBJECT
public:
    static constexpr int height = 24;
    explicit PlotEditLabel(QWidget* parent = nullptr);

    void ShowEdit();
    void ShowLabel();
    // silent: no SignalEditFinished.
    void SetTitle(const QString& text, bool silent);
    QString GetTitle() const;
    bool HasContent() const { return !GetTitle().isEmpty(); }
    bool HasWarning() const { return warning; }
    // The label in red (the field is unknown), or back to its colour.
    void ShowWarning(bool show);
    void ClearWarning() { ShowWarning(false); }
    void SetVerifyName(const QStringList& names);
    void SetEditPolicy(PlotEditPolicy policy) { editPolicy = policy; }
    PlotWarnEdit* GetEdit() const { return edit; }

Q_SIGNALS:
    void SignalEditFinished(const QString& text);
    void SignalTextEdited(const QString& text);
    void SignalEditOpened();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void EditFinished();

    QLabel* label = nullptr;
    PlotWarnEdit* edit = nullptr;
    PlotEditPolicy editPolicy = PlotEditPolicy::ClickToEdit;
    bool warning = false;
};

} // namespace rviz_plugin

#endif

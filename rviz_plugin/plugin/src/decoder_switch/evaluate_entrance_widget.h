#ifndef RVIZ_PLUGIN_EVALUATE_ENTRANCE_WIDGET_H
#define RVIZ_PLUGIN_EVALUATE_ENTRANCE_WIDGET_H

#include "evaluate_dialog.h"

#include <QPointer>
#include <QWidget>

namespace rviz_plugin {

// The wall's way into the decoding evaluation: a button that opens the evaluation dialog.
class EvaluateEntranceWidget : public QWidget {
    Q_OBJECT
public:
    explicit EvaluateEntranceWidget(QWidget* parent = nullptr);
    ~EvaluateEntranceWidget() override;

    EvaluateDialog* GetDialog() const { return dialog; }

public Q_SLOTS:
    void ShowEvaluateDialog();

private:
    QPointer<EvaluateDialog> dialog;
};

} // namespace rviz_plugin

#endif

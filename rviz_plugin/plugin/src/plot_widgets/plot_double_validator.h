#ifndef RVIZ_PLUGIN_PLOT_DOUBLE_VALIDATOR_H
#define RVIZ_PLUGIN_PLOT_DOUBLE_VALIDATOR_H

#include <QDoubleValidator>

namespace rviz_plugin {

// Numbers within +-1e19, and "AUTO" (with "AUT", which Backspace leaves of it).
class PlotDoubleValidator : public QDoubleValidator {
    Q_OBJECT
public:
    static constexpr long double limit = 1e19L;
    explicit PlotDoubleValidator(QObject* parent = nullptr) : QDoubleValidator(parent) {}
    State validate(QString& text, int& pos) const override;
};

} // namespace rviz_plugin

#endif

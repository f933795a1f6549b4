#include "config_load_guard.h"

#ifndef Q_MOC_RUN
#include <rviz/config.h>
#include <rviz/properties/property.h>
#endif

#include <cmath>

namespace rviz_plugin {

void CheckedEnumProperty::AddOption(const QString& option, int value)
{
    addOption(option, value);
    options << option;
}

ConfigLoadGuard::ConfigLoadGuard(const rviz::Property* tree) : root(tree)
{
    Remember(root);
}

void ConfigLoadGuard::Remember(const rviz::Property* property)
{
    values.insert(property, {property->getValue(), property->getName()});
    for (int i = 0; i < property->numChildren(); ++i) {
        Remember(property->childAt(i));
    }
}

bool ConfigLoadGuard::IsTakenAsSaved(const QVariant& before, const QVariant& saved, const QVariant& after)
{
    const QString text = saved.toString().trimmed();
    bool ok = false;
    switch (static_cast<QMetaType::Type>(before.type())) {
    case QMetaType::Bool:
        return saved.type() == QVariant::Bool || text.compare("true", Qt::CaseInsensitive) == 0 ||
               text.compare("false", Qt::CaseInsensitive) == 0;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong: {
        const qlonglong number = text.toLongLong(&ok);
        return ok && after.toLongLong() == number;
    }
    case QMetaType::Float:
    case QMetaType::Double: {
        const double number = text.toDouble(&ok);
        if (!ok || !std::isfinite(number)) {
            return false;
        }
        // Float properties keep single precision.
        return static_cast<float>(after.toDouble()) == static_cast<float>(number);
    }
    default:
        return true;
    }
}

void ConfigLoadGuard::RestoreInvalid(const rviz::Config& config) const
{
    Restore(const_cast<rviz::Property*>(root), config);
}

void ConfigLoadGuard::Restore(rviz::Property* property, const rviz::Config& config) const
{
    for (int i = 0; i < property->numChildren(); ++i) {
        rviz::Property* child = property->childAt(i);
        const auto remembered = values.find(child);
        if (remembered == values.end()) {
            continue;  // made during the load: its own load checks it
        }
        // Found by the name it had before the load (an item's name follows its loaded topic).
        const rviz::Config saved = config.mapGetChild(remembered->name);
        QVariant value;
        const bool hasValue = saved.getType() == rviz::Config::Value ? (value = saved.getValue(), true)
                                                                    : saved.mapGetValue("Value", &value);
        const auto* choice = qobject_cast<const CheckedEnumProperty*>(child);
        const bool taken = choice != nullptr ? choice->HasOption(child->getValue().toString())
                                             : IsTakenAsSaved(remembered->value, value, child->getValue());
        if (hasValue && remembered->value.isValid() && !taken) {
            child->setValue(remembered->value);
        }
        if (saved.getType() == rviz::Config::Map) {
            Restore(child, saved);
        }
    }
}

} // namespace rviz_plugin

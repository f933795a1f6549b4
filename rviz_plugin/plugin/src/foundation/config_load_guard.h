#ifndef RVIZ_PLUGIN_CONFIG_LOAD_GUARD_H
#define RVIZ_PLUGIN_CONFIG_LOAD_GUARD_H

#include <QMap>
#include <QString>
#include <QVariant>

namespace rviz {
class Config;
class Property;
} // namespace rviz

#ifndef Q_MOC_RUN
#include <rviz/properties/enum_property.h>
#endif

#include <QStringList>

namespace rviz_plugin {

// A choice among named options that knows its options, so that a loaded name that is none of them
// can be told apart (rviz's own keeps them to itself and maps an unknown name to 0).
class CheckedEnumProperty : public rviz::EnumProperty {
    Q_OBJECT
public:
    using rviz::EnumProperty::EnumProperty;
    void AddOption(const QString& option, int value);
    bool HasOption(const QString& option) const { return options.contains(option); }

private:
    QStringList options;
};

// Saved layouts come from files users edit. rviz's properties take what they can of a saved value:
// a word in a number field becomes 0, NaN or 1e30 is clamped to a limit, "maybe" in a checkbox
// turns it on. The guard remembers the values a subtree holds before a load and afterwards puts
// back the remembered value wherever the saved one was not taken as it stands: of the wrong type,
// not a finite number, outside the property's range, or (for a CheckedEnumProperty) none of its options.
class ConfigLoadGuard {
public:
    explicit ConfigLoadGuard(const rviz::Property* root);

    // Walks config beside the tree it was loaded into.
    void RestoreInvalid(const rviz::Config& config) const;

    // Whether saved, loaded into a property whose value was before and is now after, stood as it was.
    static bool IsTakenAsSaved(const QVariant& before, const QVariant& saved, const QVariant& after);

private:
    void Remember(const rviz::Property* property);
    void Restore(rviz::Property* property, const rviz::Config& config) const;

    struct Remembered {
        QVariant value;
        QString name;
    };
    const rviz::Property* root;
    QMap<const rviz::Property*, Remembered> values;
};

} // namespace rviz_plugin

#endif

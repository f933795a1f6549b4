#ifndef RVIZ_PLUGIN_DEFINITION_TYPES_H
#define RVIZ_PLUGIN_DEFINITION_TYPES_H

#include <Qt>

namespace rviz_plugin {

// The state of one item of the selection dialog's trees.
enum DefinitionCheckState {
    Unchecked = 0,
    PartiallyChecked = 1,
    Checked = 2,
    DisabledUnchecked = 3,
    DisabledPartiallyChecked = 4,
    DisabledChecked = 5,
    NotSelectable = 6,  // a nested array, for good
};

// What a tree greys out.
enum DefinitionDisableType {
    DisableNone = 0,
    DisableOtherArrays = 1,
    DisableArrays = 2,
    DisableUnchecked = 3,
    DisableAll = 4,
};

// The state of the whole selection.
enum DefinitionEditMode {
    FreeSelection = 0,
    ColumnLimitReached = 1,
    ArraySelected = 2,
    KeyValueLimitReached = 3,
    ArrayColumnLimitReached = 4,
};

// What a field item holds.
enum DefinitionDataType {
    PlainField = 0,
    ArrayField = 1,
};

enum DefinitionModelType {
    TopicModelType = 0,
    FieldModelType = 1,
};

// Item data roles beside the edit (JSON), tool tip and check state roles.
constexpr int DataTypeRole = Qt::UserRole + 1;
constexpr int FilterKeyRole = Qt::UserRole + 2;
constexpr int CheckStateValueRole = Qt::UserRole + 3;

inline int EnabledState(int state)
{
    return state < DisabledUnchecked ? state : state - 3;
}

inline int DisabledState(int state)
{
    return state < DisabledUnchecked ? state + 3 : state;
}

inline bool IsDisabledState(int state)
{
    return state >= DisabledUnchecked;
}

inline Qt::CheckState MapState(int state)
{
    switch (state) {
    case PartiallyChecked:
    case DisabledPartiallyChecked:
        return Qt::PartiallyChecked;
    case Checked:
    case DisabledChecked:
        return Qt::Checked;
    default:
        return Qt::Unchecked;
    }
}

} // namespace rviz_plugin

#endif

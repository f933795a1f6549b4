// The selection dialog's ticking rules on field trees made from message definitions.
#include "msg_definition/msg_definition_filter_model.h"
#include "msg_definition/msg_definition_model_mgr.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QJsonObject>
#include <QStandardItemModel>

#include <memory>

using namespace rviz_plugin;

namespace {

const char* const objectsDefinition =
    "int32 KIND_CAR=1\n"
    "Header header\n"
    "int32 count\n"
    "Obj[] objects\n"
    "float64[] values\n"
    "================================================================================\n"
    "MSG: std_msgs/Header\nuint32 seq\ntime stamp\nstring frame_id\n"
    "================================================================================\n"
    "MSG: demo/Obj\nint32 id\nfloat64 x\nstd_msgs/ColorRGBA color\nPt[] pts\n"
    "================================================================================\n"
    "MSG: std_msgs/ColorRGBA\nfloat32 r\nfloat32 g\nfloat32 b\nfloat32 a\n"
    "================================================================================\n"
    "MSG: demo/Pt\nfloat64 x\n";

std::string ManyFields(int count)
{
    std::string definition;
    for (int i = 0; i < count; ++i) {
        definition += "float64 f" + std::to_string(i) + "\n";
    }
    return definition;
}

class DefinitionModel : public ::testing::Test {
protected:
    void SetUp() override
    {
        manager.Initialize();
        Add("/objs", "demo/Objects", objectsDefinition);
        Add("/veh", "demo/Vehicle", ManyFields(60));
        Add("/empty", "demo/Empty", "");
    }

    void Add(const std::string& topic, const std::string& type, const std::string& definition)
    {
        parsers.push_back(std::make_unique<RosMsgParser::Parser>(topic, RosMsgParser::ROSType(type), definition));
        auto msg = std::make_unique<MsgParsers::DeserializedMsg>();
        msg->flatMessage.schema = parsers.back()->getSchema();
        msgs[topic] = msg.get();
        storage.push_back(std::move(msg));
    }

    void Start(const std::map<std::string, MsgDefinitionModelMgr::FieldTypePairs>& saved = {},
               const std::string& arrayName = "")
    {
        manager.ResetModel(saved, arrayName);
        ASSERT_TRUE(manager.UpdateTopicMap(msgs));
    }

    // The field model of topic, recovered from the selection as the dialog does for a topic in view.
    std::unique_ptr<QStandardItemModel> Fields(const QString& topic)
    {
        std::unique_ptr<QStandardItemModel> model(manager.BuildFieldModel(topic));
        manager.RecoverFieldItems(topic, manager.GetDisableType(topic), model.get(), QModelIndex());
        manager.RecoverFields(model.get(), QModelIndex());
        return model;
    }

    static QModelIndex Find(const QAbstractItemModel* model, const QString& fullName,
                            const QModelIndex& parent = QModelIndex())
    {
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex child = model->index(row, 0, parent);
            if (MsgDefinitionModelMgr::GetFullName(model, child) == fullName) {
                return child;
            }
            const QModelIndex found = Find(model, fullName, child);
            if (found.isValid()) {
                return found;
            }
        }
        return QModelIndex();
    }

    int State(const QAbstractItemModel* model, const QString& fullName)
    {
        return MsgDefinitionModelMgr::GetCheckState(model, Find(model, fullName));
    }

    void TickVehicleFields(QStandardItemModel* model, int count)
    {
        for (int i = 0; i < count; ++i) {
            manager.SetFieldState("/veh", Checked, model, Find(model, "/veh/f" + QString::number(i)));
        }
    }

    MsgDefinitionModelMgr manager;
    std::vector<std::unique_ptr<RosMsgParser::Parser>> parsers;
    std::vector<std::unique_ptr<MsgParsers::DeserializedMsg>> storage;
    DeserializedMsgs msgs;
};

} // namespace

TEST_F(DefinitionModel, TreesItemsAndKeysFollowTheDefinitions)
{
    Start();
    QStandardItemModel* topics = manager.GetModel(TopicModelType);
    ASSERT_EQ(topics->rowCount(), 3);
    EXPECT_EQ(topics->index(0, 0).data(Qt::ToolTipRole).toString(), "/empty[demo/Empty]");
    EXPECT_EQ(topics->index(1, 0).data(Qt::ToolTipRole).toString(), "/objs[demo/Objects]");
    auto objs = Fields("/objs");
    const QModelIndex values = Find(objs.get(), "/objs/values");
    EXPECT_EQ(values.data(Qt::ToolTipRole).toString(), "values[][float64]");
    EXPECT_EQ(values.data(Qt::EditRole).toJsonObject()["fulltype"].toString(), "[float64[]]");
    const QModelIndex stamp = Find(objs.get(), "/objs/header/stamp/secs");
    EXPECT_EQ(stamp.data(FilterKeyRole).toString(), "headerstampsecs");
    EXPECT_EQ(stamp.data(Qt::EditRole).toJsonObject()["fulltype"].toString(), "time");
    EXPECT_EQ(Find(objs.get(), "/objs/objects/color/r").data(Qt::EditRole).toJsonObject()["fulltype"].toString(),
              "[float32](color)");
    // A nested array can never be ticked, and says why.
    const QModelIndex pts = Find(objs.get(), "/objs/objects/pts");
    EXPECT_FALSE(objs->itemFromIndex(pts)->isCheckable());
    EXPECT_EQ(pts.data(Qt::ToolTipRole).toString(), "The selection of nested array fields is not supported at present.");
    EXPECT_FALSE(objs->hasChildren(pts));
    // A topic without fields comes out greyed from its empty children.
    auto empty = Fields("/empty");
    EXPECT_EQ(manager.RecoverFields(empty.get(), QModelIndex()), DisabledUnchecked);
    EXPECT_EQ(manager.GetCheckState(nullptr, QModelIndex()), DisabledUnchecked);
}

TEST_F(DefinitionModel, FifteenFieldsGreyTheArraysAndFiftyGreyEverythingUnticked)
{
    Start();
    auto veh = Fields("/veh");
    TickVehicleFields(veh.get(), 14);
    EXPECT_EQ(manager.GetCurrentEditMode(), FreeSelection);
    TickVehicleFields(veh.get(), 15);
    EXPECT_EQ(manager.GetCurrentEditMode(), ColumnLimitReached);
    auto objs = Fields("/objs");
    EXPECT_EQ(State(objs.get(), "/objs/values"), DisabledUnchecked);
    EXPECT_EQ(State(objs.get(), "/objs/objects/id"), DisabledUnchecked);
    EXPECT_EQ(State(objs.get(), "/objs/count"), Unchecked);
    manager.SetFieldState("/veh", Unchecked, veh.get(), Find(veh.get(), "/veh/f3"));
    EXPECT_EQ(manager.GetCurrentEditMode(), FreeSelection);
    objs = Fields("/objs");
    EXPECT_EQ(State(objs.get(), "/objs/values"), Unchecked);

    TickVehicleFields(veh.get(), 50);
    EXPECT_EQ(manager.GetCurrentEditMode(), KeyValueLimitReached);
    EXPECT_EQ(manager.GetSelectedFieldCount(), 50);
    EXPECT_EQ(State(veh.get(), "/veh/f50"), DisabledUnchecked);
    EXPECT_EQ(State(veh.get(), "/veh/f0"), Checked);
    objs = Fields("/objs");
    EXPECT_EQ(State(objs.get(), "/objs/count"), DisabledUnchecked);
    // A tick on all stops at the limit: greyed items are left as they are.
    manager.SetAllSubFieldState("/veh", Checked, veh.get());
    EXPECT_EQ(manager.GetSelectedFieldCount(), 50);
    // A header untick over the tree removes everything of the topic.
    EXPECT_EQ(manager.SetAllSubFieldState("/veh", Unchecked, veh.get()), Unchecked);
    EXPECT_EQ(manager.GetSelectedFieldCount(), 0);
    EXPECT_EQ(State(veh.get(), "/veh/f55"), Unchecked);
}

TEST_F(DefinitionModel, AFieldInsideAnArraySelectsItAndMakesATableOfOneTopic)
{
    Start();
    auto objs = Fields("/objs");
    manager.SetFieldState("/objs", Checked, objs.get(), Find(objs.get(), "/objs/objects/id"));
    EXPECT_EQ(manager.GetSelectedArrayTopic(), "/objs");
    EXPECT_EQ(manager.GetSelectedArrayName(), "/objs/objects");
    EXPECT_EQ(manager.GetCurrentEditMode(), ArraySelected);
    EXPECT_EQ(manager.GetDisableType("/objs"), DisableOtherArrays);
    EXPECT_EQ(manager.GetDisableType("/veh"), DisableAll);
    EXPECT_EQ(State(objs.get(), "/objs/values"), DisabledUnchecked);
    EXPECT_EQ(State(objs.get(), "/objs/count"), Unchecked);
    EXPECT_EQ(State(objs.get(), "/objs/objects"), PartiallyChecked);
    auto veh = Fields("/veh");
    EXPECT_EQ(State(veh.get(), "/veh/f0"), DisabledUnchecked);

    // Up to 15 fields of the array's topic; then what is not ticked greys.
    manager.SetSubFieldState("/objs", Checked, objs.get(), Find(objs.get(), "/objs/header"));
    manager.SetSubFieldState("/objs", Checked, objs.get(), Find(objs.get(), "/objs/objects"));
    EXPECT_EQ(manager.GetSelectedFieldCount("/objs"), 10);  // header 4, id, x, colour 4
    // The nested array inside can never be ticked.
    EXPECT_EQ(State(objs.get(), "/objs/objects"), PartiallyChecked);
    manager.SetFieldState("/objs", Checked, objs.get(), Find(objs.get(), "/objs/count"));
    EXPECT_EQ(manager.GetCurrentEditMode(), ArraySelected);
    manager.SetSubFieldState("/objs", Checked, objs.get(), Find(objs.get(), "/objs/header"));
    EXPECT_EQ(manager.GetSelectedFieldCount("/objs"), 11);

    // Unticking the array's last field restores everything.
    manager.SetSubFieldState("/objs", Unchecked, objs.get(), Find(objs.get(), "/objs/objects"));
    EXPECT_TRUE(manager.GetSelectedArrayName().isEmpty());
    EXPECT_EQ(manager.GetCurrentEditMode(), FreeSelection);
    EXPECT_EQ(State(objs.get(), "/objs/values"), Unchecked);
    manager.SetFieldState("/objs", Checked, objs.get(), Find(objs.get(), "/objs/values"));
    EXPECT_EQ(manager.GetSelectedArrayName(), "/objs/values");
    manager.SetFieldState("/objs", Unchecked, objs.get(), Find(objs.get(), "/objs/values"));
    EXPECT_TRUE(manager.GetSelectedArrayName().isEmpty());
}

TEST_F(DefinitionModel, AParentTickLeavesArraysOutAndAPartialTickUnticks)
{
    Start();
    auto objs = Fields("/objs");
    EXPECT_EQ(manager.SetAllSubFieldState("/objs", Checked, objs.get()), PartiallyChecked);
    EXPECT_TRUE(manager.GetSelectedArrayName().isEmpty());
    EXPECT_EQ(manager.GetSelectedFieldCount("/objs"), 5);  // seq, secs, nsecs, frame_id, count
    EXPECT_EQ(State(objs.get(), "/objs/objects"), Unchecked);
    EXPECT_EQ(State(objs.get(), "/objs/header"), Checked);
    manager.SetAllSubFieldState("/objs", Unchecked, objs.get());
    EXPECT_EQ(manager.GetSelectedTopicCount(), 0);
}

TEST_F(DefinitionModel, SavedSelectionsRecoverOnlyWhatStillMatches)
{
    std::map<std::string, MsgDefinitionModelMgr::FieldTypePairs> saved;
    saved["/objs"] = {{"/objs/objects/id", "[int32]"}, {"/objs/objects/x", "[float32]"}, {"/objs/count", "[int32]"}};
    Start(saved, "/objs/objects");
    EXPECT_EQ(manager.GetSelectedArrayName(), "/objs/objects");
    EXPECT_EQ(manager.GetRecoverFocusTopic(), "/objs");
    std::map<std::string, MsgDefinitionModelMgr::FieldTypePairs> selected;
    manager.GetSelectedItemMap(selected);
    const MsgDefinitionModelMgr::FieldTypePairs expected{{"/objs/count", "[int32]"}, {"/objs/objects/id", "[int32]"}};
    EXPECT_EQ(selected["/objs"], expected);  // x changed its type

    // Fields of an array that is no longer one do not become key-value fields.
    saved["/objs"] = {{"/objs/header/seq", "[uint32]"}, {"/objs/count", "[int32]"}};
    Start(saved, "/objs/header");
    manager.GetSelectedItemMap(selected);
    EXPECT_TRUE(manager.GetSelectedArrayTopic().isEmpty());
    EXPECT_EQ(selected["/objs"].size(), 1U);

    // A topic that comes later is recovered when its first message arrives.
    saved = {{"/late", {{"/late/f1", "[float64]"}}}};
    Start(saved);
    EXPECT_TRUE(manager.GetRecoverFocusTopic().isEmpty());
    Add("/late", "demo/Late", ManyFields(3));
    int signalled = 0;
    QObject::connect(&manager, &MsgDefinitionModelMgr::SignalModelChanged,
                     [&](const QModelIndex&, int first, int last, const QString& focus) {
                         ++signalled;
                         EXPECT_EQ(first, 3);
                         EXPECT_EQ(last, 3);
                         EXPECT_EQ(focus, "/late");
                     });
    ASSERT_TRUE(manager.UpdateTopicMap(msgs));
    EXPECT_EQ(signalled, 1);
    EXPECT_EQ(manager.GetSelectedFieldCount("/late"), 1);
}

TEST_F(DefinitionModel, AFilterKeepsTheAncestorsOfMatchesAndAHeaderTickOnlyTicksWhatItShows)
{
    Start();
    auto objs = Fields("/objs");
    MsgDefinitionFilterModel filter;
    filter.setSourceModel(objs.get());
    filter.SetKeyword("stampsecs");
    ASSERT_EQ(filter.rowCount(), 1);  // header
    std::vector<QModelIndex> expand;
    filter.GetExpandList(expand);
    EXPECT_EQ(expand.size(), 2U);  // header and stamp
    manager.SetAllSubFieldState("/objs", Checked, &filter);
    std::map<std::string, MsgDefinitionModelMgr::FieldTypePairs> selected;
    manager.GetSelectedItemMap(selected);
    const MsgDefinitionModelMgr::FieldTypePairs expected{{"/objs/header/stamp/secs", "time"}};
    EXPECT_EQ(selected["/objs"], expected);
    int checked = 0, partial = 0, total = 0;
    MsgDefinitionModelMgr::GetModelCount(checked, partial, total, objs.get(), QModelIndex());
    EXPECT_EQ(checked, 1);
    EXPECT_EQ(total, 13);  // pts, a nested array, is a leaf too
}

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

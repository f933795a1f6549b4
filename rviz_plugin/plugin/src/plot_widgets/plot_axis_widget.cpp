#include "plot_axis_widget.h"

#include "plot_axis_item.h"
#include "plot_combo_box.h"
#include "plot_edit_label.h"
#include "plot_item_view.h"

#include "plot_data/plot_global.h"
#include "plot_data/plot_log.h"
#include "plot_data/plot_model.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace rviz_plugin {

const QStringList PlotAxisWidget::lineColors = {"#77A0F0", "#009DA5", "#F8CF49", "#596077", "#9C74F2"};

namespace {
const char* const timestampText = "timestamp";
const char* const msgPathText = "msg path";
constexpr int maxVisibleFields = 10;

PlotItemView* MakeDropList()
{
    auto* view = new PlotItemView();
    view->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    view->SetMaxVisibleItems(maxVisibleFields);
    view->hide();
    return view;
}

void ShowUnder(PlotItemView* view, QWidget* under)
{
    view->setFixedWidth(std::max(under->width(), 240));
    view->move(under->mapToGlobal(QPoint(0, under->height() + 2)));
    view->show();
    view->raise();
}
} // namespace

PlotAxisWidget::PlotAxisWidget(const PlotModel& plotModel, QWidget* parent) : QWidget(parent), model(plotModel)
{
    setObjectName("plotAxisWidget");
    setAttribute(Qt::WA_StyledBackground);
    freqTimer.setInterval(PlotAxisItem::frequencyInterval);
    connect(&freqTimer, &QTimer::timeout, this, &PlotAxisWidget::SlotCheckFrequency);
}

PlotAxisWidget::~PlotAxisWidget()
{
    delete xItemView;
    delete xExternView;
}

void PlotAxisWidget::InitUi()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 8);
    layout->setSpacing(8);
    auto* xRow = new QHBoxLayout();
    comboBox = new PlotComboBox("X :", this);
    comboBox->InitUi({timestampText, msgPathText});
    comboBox->setFixedWidth(150);
    xEdit = new PlotEditLabel(this);
    xEdit->hide();
    xExternEdit = new PlotEditLabel(this);
    xExternEdit->setFixedWidth(70);
    xExternEdit->hide();
    warningLabel = new QLabel(this);
    warningLabel->setFixedSize(16, 16);
    warningLabel->setPixmap(QPixmap(":/plotqrc/assets/image/warning.png"));
    warningLabel->setToolTip("Please fill the Playback Settings\nand select at least 1 object from\nthe Event list");
    warningLabel->hide();
    xRow->addWidget(comboBox);
    xRow->addWidget(xEdit, 1);
    xRow->addWidget(xExternEdit);
    xRow->addWidget(warningLabel);
    layout->addLayout(xRow);
    auto* yLabel = new QLabel("Y :", this);
    layout->addWidget(yLabel);
    itemsLayout = new QVBoxLayout();
    itemsLayout->setSpacing(lineStep);
    layout->addLayout(itemsLayout);
    addLineBtn = new QPushButton("Add Line", this);
    addLineBtn->setObjectName("addLineBtn");
    addLineBtn->setFixedHeight(26);
    layout->addWidget(addLineBtn);
    layout->addStretch();
    xItemView = MakeDropList();
    xExternView = MakeDropList();

    connect(comboBox, &PlotComboBox::SignalTextChanged, this, &PlotAxisWidget::SlotComboBoxTextChanged);
    connect(addLineBtn, &QPushButton::clicked, this, &PlotAxisWidget::SlotAddLine);
    connect(xEdit, &PlotEditLabel::SignalEditFinished, this, &PlotAxisWidget::SlotEditFinished);
    connect(xEdit, &PlotEditLabel::SignalEditOpened, this, [this]() {
        xItemView->SetItems(model.GetFieldList());
        xItemView->SlotLineEditTextChanged(QString());
        ShowUnder(xItemView, xEdit);
    });
    connect(xEdit, &PlotEditLabel::SignalTextEdited, xItemView, &PlotItemView::SlotLineEditTextChanged);
    connect(xItemView, &PlotItemView::SignalItemClicked, this, [this](int, const QString& text) {
        xItemView->hide();
        xEdit->SetTitle(text, false);
    });
    connect(xExternEdit, &PlotEditLabel::SignalEditOpened, this, [this]() { ShowUnder(xExternView, xExternEdit); });
    connect(xExternEdit, &PlotEditLabel::SignalEditFinished, this, &PlotAxisWidget::SlotEditFinishedExtern);
    connect(xExternView, &PlotItemView::SignalItemClicked, this, [this](int, const QString& text) {
        xExternView->hide();
        xExternEdit->SetTitle(text, false);
    });
    AdjustWidth();
    UpdateHeight();
    UpdateAddLineBtnStatus();
}

void PlotAxisWidget::HideItemViews()
{
    comboBox->HideItemView();
    xItemView->hide();
    xExternView->hide();
    for (PlotAxisItem* item : items) {
        item->ShowItemView(false);
        item->ShowExternItemView(false);
    }
}

void PlotAxisWidget::SlotComboBoxTextChanged(const QString& text)
{
    if (text.isEmpty()) {
        return;
    }
    axisData.isMsgPath = text == msgPathText;
    if (axisData.isMsgPath) {
        freqTimer.start();
    } else {
        freqTimer.stop();
    }
    AdjustWidth();
    xEdit->setVisible(axisData.isMsgPath);
    if (!axisData.isMsgPath) {
        xExternEdit->hide();
        warningLabel->hide();
        axisData.xField.clear();
        axisData.xFieldType.clear();
        axisData.selectedArrayName.clear();
        axisData.curveName.clear();
        axisData.isArray = false;
        xEdit->SetTitle(QString(), true);
        xRecord.ShutdownSubscriber();
    } else if (isVisible()) {
        xEdit->ClearWarning();
        xExternEdit->ClearWarning();
        xEdit->ShowEdit();
    }
    for (PlotAxisItem* item : items) {
        item->SwitchXAxis(axisData.isMsgPath, false);
    }
    Q_EMIT SignalAxisDataChanged(axisData);
}

void PlotAxisWidget::SlotCheckFrequency()
{
    if (!axisData.isMsgPath) {
        return;
    }
    if (xEdit->HasWarning()) {
        warningLabel->hide();
        return;
    }
    if (comboBox->IsItemViewVisible() || xItemView->isVisible()) {
        return;
    }
    bool anyNew = false;
    for (const PlotAxisItem* item : items) {
        anyNew = anyNew || item->HasNewPoint();
    }
    warningLabel->setVisible(!axisData.xField.isEmpty() && !anyNew);
}

bool PlotAxisWidget::IsWarningShown() const
{
    return !warningLabel->isHidden();
}

int PlotAxisWidget::GetUpdateIndex() const
{
    for (const PlotAxisItem* item : items) {
        if (item->HasNewPoint()) {
            return item->GetCurveIndex();
        }
    }
    return -1;
}

void PlotAxisWidget::ShowWarning(bool show)
{
    xEdit->ShowWarning(show);
}

void PlotAxisWidget::AdjustWidth()
{
    int width = axisData.isMsgPath ? msgPathWidth : timestampWidth;
    for (const PlotAxisItem* item : items) {
        if (item->GetLineData().isArray) {
            width = std::max(width, elementWidth);
        }
    }
    if (axisData.isMsgPath && isXArray) {
        width = arrayXWidth;
    }
    setFixedWidth(width);
}

void PlotAxisWidget::UpdateHeight()
{
    setFixedHeight(baseHeight + static_cast<int>(items.size()) * (PlotAxisItem::itemHeight + lineStep));
}

PlotAxisItem* PlotAxisWidget::CreateAxisItem(const QString& field, const QColor& color)
{
    auto* item = new PlotAxisItem(record, model, field, color, this);
    connect(item, &PlotAxisItem::SignalColorChanged, this, &PlotAxisWidget::SignalColorChanged);
    connect(item, &PlotAxisItem::SignalRemoveItem, this, &PlotAxisWidget::SlotRemoveItem);
    connect(item, &PlotAxisItem::SignalUpdateCurve, this, &PlotAxisWidget::SignalUpdateCurve);
    connect(item, &PlotAxisItem::SignalLoopBegin, this, &PlotAxisWidget::SignalLoopBegin);
    connect(item, &PlotAxisItem::SignalStartDrawCurve, this, &PlotAxisWidget::SignalStartDrawCurve);
    connect(item, &PlotAxisItem::SignalClearCurveData, this, &PlotAxisWidget::SignalClearCurveData);
    connect(item, &PlotAxisItem::SignalLineChanged, this, &PlotAxisWidget::UpdateLines);
    itemsLayout->addWidget(item);
    items.push_back(item);
    return item;
}

void PlotAxisWidget::UpdateLines()
{
    axisData.axisLineList.clear();
    for (const PlotAxisItem* item : items) {
        axisData.axisLineList.push_back(item->GetLineData());
    }
    AdjustWidth();
    Q_EMIT SignalAxisDataChanged(axisData);
}

void PlotAxisWidget::SlotAddLine()
{
    comboBox->HideItemView();
    if (items.size() >= maxLines) {
        return;
    }
    // The first colour no line has: a removed line's colour comes back first.
    int slot = 0;
    while (std::any_of(items.begin(), items.end(), [slot](const PlotAxisItem* item) { return item->GetColorSlot() == slot; })) {
        ++slot;
    }
    const QString color = lineColors[slot % lineColors.size()];
    PlotAxisItem* item = CreateAxisItem(QString(), QColor(color));
    item->SetColorSlot(slot);
    item->SetCurveIndex(static_cast<int>(items.size()) - 1);
    item->SetIsMsgPath(axisData.isMsgPath);
    if (axisData.isMsgPath) {
        item->SetXFieldName(axisData.curveName.isEmpty() ? axisData.xField : axisData.curveName);
    }
    UpdateAddLineBtnStatus();
    UpdateHeight();
    Q_EMIT SignalAddLine(color);
    UpdateLines();
    if (isVisible()) {
        item->SetEditFocus();
    }
}

void PlotAxisWidget::SlotRemoveItem(PlotAxisItem* item)
{
    const int at = items.indexOf(item);
    if (at < 0) {
        return;
    }
    itemsLayout->removeWidget(item);
    items.remove(at);
    const int index = item->GetCurveIndex();
    record.RemoveLine(index);
    Q_EMIT SignalRemoveItem(index);
    item->deleteLater();
    UpdateAddLineBtnStatus();
    UpdateHeight();
    UpdateLines();
    if (items.isEmpty()) {
        record.ShutdownSubscriber();
        AdjustWidth();
        Q_EMIT SignalResetPlotUi();
    }
}

void PlotAxisWidget::UpdateItemsIndex(int removed)
{
    for (PlotAxisItem* item : items) {
        if (item->GetCurveIndex() > removed) {
            item->SetCurveIndex(item->GetCurveIndex() - 1);
        }
    }
}

void PlotAxisWidget::UpdateAddLineBtnStatus()
{
    addLineBtn->setEnabled(items.size() < maxLines);
}

void PlotAxisWidget::SlotEditFinished(const QString& text)
{
    xItemView->hide();
    const QString fieldName = PlotGlobal::GetFieldName(text);
    const PlotTopicMsg* node = model.GetTopicMsg(fieldName.toStdString());
    if (node == nullptr) {
        ShowWarning(true);
        return;
    }
    ShowWarning(false);
    const QString arrayName = PlotGlobal::GetArrayName(node);
    axisData.xField = fieldName;
    axisData.xFieldType = PlotGlobal::GetFieldType(node);
    axisData.selectedArrayName = arrayName;
    axisData.isArray = !arrayName.isEmpty();
    isXArray = axisData.isArray;
    const int index = PlotGlobal::GetArrayIndex(text);
    if (!axisData.isArray) {
        xExternEdit->hide();
        axisData.curveName = fieldName;
        xEdit->SetTitle(text, true);
        SetItemsXField(fieldName);
    } else if (index >= 0) {
        axisData.curveName = PlotGlobal::GetCurveName(fieldName, arrayName, index);
        xEdit->SetTitle(fieldName, true);
        xExternEdit->SetTitle(QString(".%1").arg(index), true);
        xExternEdit->show();
        SetItemsXField(axisData.curveName);
    } else {
        axisData.curveName.clear();
        xEdit->SetTitle(fieldName, true);
        xExternEdit->SetTitle(QString(), true);
        xExternEdit->show();
        UpdateRecord();
        QTimer::singleShot(PlotAxisItem::arrayItemsDelay, this, [this]() {
            const int count = xRecord.GetArraySize(PlotGlobal::GetTopic(axisData.xField).toStdString(),
                                                   axisData.selectedArrayName.toStdString());
            xExternView->SetItems(PlotGlobal::GetArrayItems(count));
            if (isVisible() && count > 0) {
                ShowUnder(xExternView, xExternEdit);
            }
        });
    }
    AdjustWidth();
    Q_EMIT SignalAxisDataChanged(axisData);
}

void PlotAxisWidget::SlotEditFinishedExtern(const QString& text)
{
    xExternView->hide();
    const int index = PlotGlobal::GetArrayIndex(text);
    if (index < 0 || axisData.selectedArrayName.isEmpty()) {
        xExternEdit->ShowWarning(true);
        return;
    }
    xExternEdit->ShowWarning(false);
    axisData.curveName = PlotGlobal::GetCurveName(axisData.xField, axisData.selectedArrayName, index);
    SetItemsXField(axisData.curveName);
    Q_EMIT SignalAxisDataChanged(axisData);
}

void PlotAxisWidget::SetItemsXField(const QString& field)
{
    for (PlotAxisItem* item : items) {
        item->SetXFieldName(field);
        item->SwitchXAxis(true, false);
    }
    UpdateRecord();
}

void PlotAxisWidget::UpdateRecord()
{
    const QString fieldName = PlotGlobal::GetFieldName(axisData.xField);
    const PlotTopicMsg* node = model.GetTopicMsg(fieldName.toStdString());
    if (node == nullptr) {
        PlotLog("UpdateRecord, invalid xFieldMsg");
        return;
    }
    const QString key = axisData.curveName.isEmpty() ? fieldName : axisData.curveName;
    xRecord.UpdateSelectionDataFromDefinition(
        0, {{PlotGlobal::GetTopic(fieldName).toStdString(),
             {{fieldName.toStdString(), PlotGlobal::GetFieldType(node).toStdString()}}}});
    xRecord.UpdateSelection(0, std::string(), key.toStdString());
}

void PlotAxisWidget::SetAxisData(const AxisData& data)
{
    axisData = data;
}

void PlotAxisWidget::UpdateAxisWidget()
{
    const AxisData saved = axisData;
    for (PlotAxisItem* item : items) {
        itemsLayout->removeWidget(item);
        item->deleteLater();
    }
    items.clear();
    {
        const QSignalBlocker blocker(comboBox);
        comboBox->SetCurrentText(saved.isMsgPath ? msgPathText : timestampText);
    }
    axisData.isMsgPath = saved.isMsgPath;
    xEdit->setVisible(saved.isMsgPath);
    if (saved.isMsgPath) {
        freqTimer.start();
        xEdit->SetTitle(saved.xField, true);
        // The definitions of the topics come first: the field is selected once they can have come.
        const QString xText = saved.curveName.isEmpty() ? saved.xField : saved.curveName;
        QTimer::singleShot(selectDelay, this, [this, xText]() { SlotEditFinished(xText); });
    }
    for (int i = 0; i < saved.axisLineList.size(); ++i) {
        const AxisLineData& line = saved.axisLineList[i];
        PlotAxisItem* item = CreateAxisItem(line.yField, QColor(line.color));
        const int slot = static_cast<int>(lineColors.indexOf(line.color.toUpper()));
        item->SetColorSlot(slot >= 0 ? slot : i);
        item->SetCurveIndex(i);
        item->SetCurveInfoFromCfg(saved, line);
        const QString yText = line.curveName.isEmpty() ? line.yField : line.curveName;
        QTimer::singleShot(selectDelay, item, [item, yText]() { item->SetSelectField(yText, true); });
    }
    axisData = saved;
    UpdateHeight();
    AdjustWidth();
    UpdateAddLineBtnStatus();
}

void PlotAxisWidget::OnPlotVisibleChanged(bool visible)
{
    // A hidden plot decodes nothing.
    if (visible) {
        record.Resume();
        xRecord.Resume();
    } else {
        record.ShutdownSubscriber();
        xRecord.ShutdownSubscriber();
    }
    for (PlotAxisItem* item : items) {
        if (visible) {
            item->StartUpdateCurve();
        } else {
            item->ResetCurve();
            item->StopUpdateCurve();
            Q_EMIT SignalClearCurveData(item->GetCurveIndex());
        }
    }
}

} // namespace rviz_plugin

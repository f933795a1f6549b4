#include "plot_axis_item.h"

#include "plot_color_widget.h"
#include "plot_edit_label.h"
#include "plot_item_view.h"
#include "plot_warn_edit.h"

#include "plot_data/plot_global.h"
#include "plot_data/plot_model.h"
#include "plot_data/plot_record.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace rviz_plugin {

namespace {
constexpr int maxVisibleFields = 10;
}

PlotAxisItem::PlotAxisItem(PlotRecord& plotRecord, const PlotModel& plotModel, const QString& field,
                           const QColor& lineColor, QWidget* parent)
    : QWidget(parent), record(plotRecord), model(plotModel), sampler(plotRecord, plotModel)
{
    setFixedHeight(itemHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    colorLabel = new QLabel(this);
    colorLabel->setFixedSize(16, 16);
    colorLabel->setCursor(Qt::PointingHandCursor);
    colorLabel->installEventFilter(this);
    editLabel = new PlotEditLabel(this);
    externEdit = new PlotEditLabel(this);
    externEdit->setFixedWidth(70);
    externEdit->hide();
    warningLabel = new QLabel(this);
    warningLabel->setFixedSize(16, 16);
    warningLabel->setPixmap(QPixmap(":/plotqrc/assets/image/warning.png"));
    warningLabel->setToolTip("Please fill the Playback Settings\nand select at least 1 object from\nthe Event list");
    warningLabel->hide();
    removeBtn = new QPushButton(this);
    removeBtn->setObjectName("removeBtn");
    removeBtn->setIcon(QIcon(":/plotqrc/assets/image/delete.png"));
    removeBtn->setFixedSize(16, 16);
    layout->addWidget(colorLabel);
    layout->addWidget(editLabel, 1);
    layout->addWidget(externEdit);
    layout->addWidget(warningLabel);
    layout->addWidget(removeBtn);

    itemView = new PlotItemView();
    itemView->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    itemView->SetMaxVisibleItems(maxVisibleFields);
    itemView->hide();
    externView = new PlotItemView();
    externView->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    externView->SetMaxVisibleItems(maxVisibleFields);
    externView->hide();

    connect(editLabel, &PlotEditLabel::SignalEditFinished, this, &PlotAxisItem::SlotEditFinished);
    connect(editLabel, &PlotEditLabel::SignalEditOpened, this, [this]() { ShowItemView(true); });
    connect(editLabel, &PlotEditLabel::SignalTextEdited, itemView, &PlotItemView::SlotLineEditTextChanged);
    connect(itemView, &PlotItemView::SignalItemClicked, this, [this](int, const QString& text) {
        ShowItemView(false);
        editLabel->SetTitle(text, false);
    });
    connect(externEdit, &PlotEditLabel::SignalEditOpened, this, [this]() { ShowExternItemView(true); });
    connect(externEdit, &PlotEditLabel::SignalEditFinished, this, &PlotAxisItem::SlotEditFinishedExtern);
    connect(externView, &PlotItemView::SignalItemClicked, this, [this](int, const QString& text) {
        ShowExternItemView(false);
        externEdit->SetTitle(text, false);
    });
    connect(removeBtn, &QPushButton::clicked, this, [this]() { Q_EMIT SignalRemoveItem(this); });
    connect(&sampler, &CurveSampler::SignalUpdateCurve, this, &PlotAxisItem::SignalUpdateCurve);
    connect(&sampler, &CurveSampler::SignalLoopBegin, this, &PlotAxisItem::SignalLoopBegin);
    freqTimer.setInterval(frequencyInterval);
    connect(&freqTimer, &QTimer::timeout, this, &PlotAxisItem::SlotCheckFrequency);
    SetCurveColor(lineColor);
    editLabel->SetTitle(field, true);
}

PlotAxisItem::~PlotAxisItem()
{
    delete itemView;
    delete externView;
}

void PlotAxisItem::SetCurveIndex(int index)
{
    sampler.SetCurveIndex(index);
}

void PlotAxisItem::SetCurveColor(const QColor& newColor)
{
    color = newColor;
    lineData.color = newColor.name().toUpper();
    colorLabel->setStyleSheet(QString("QLabel{background-color:rgba(%1,%2,%3,%4);}")
                                  .arg(color.red())
                                  .arg(color.green())
                                  .arg(color.blue())
                                  .arg(color.alpha()));
    Q_EMIT SignalColorChanged(GetCurveIndex(), color);
    Q_EMIT SignalLineChanged();
}

void PlotAxisItem::SetEditFocus()
{
    editLabel->ShowEdit();
}

void PlotAxisItem::SetYFieldName(const QString& field)
{
    editLabel->SetTitle(field, true);
}

void PlotAxisItem::SetXFieldName(const QString& field)
{
    xField = field;
    sampler.SetXField(field);
}

void PlotAxisItem::SetIsMsgPath(bool msgPath)
{
    isMsgPath = msgPath;
    sampler.SetIsMsgPath(msgPath);
    if (isMsgPath) {
        freqTimer.start();
    } else {
        freqTimer.stop();
        ShowWarningLabel(false);
    }
}

void PlotAxisItem::SwitchXAxis(bool msgPath, bool isRestore)
{
    SetIsMsgPath(msgPath);
    if (!lineData.curveName.isEmpty() && !isRestore) {
        Q_EMIT SignalClearCurveData(GetCurveIndex());
        SetSelectField(lineData.curveName, true);
    }
}

void PlotAxisItem::Subscribe(const QString& yKey)
{
    const QString fieldName = PlotGlobal::GetFieldName(yKey);
    std::map<std::string, MsgRecord::FieldTypePairs> selection;
    const auto add = [&](const QString& name) {
        const PlotTopicMsg* node = model.GetTopicMsg(name.toStdString());
        selection[PlotGlobal::GetTopic(name).toStdString()].emplace_back(
            name.toStdString(), PlotGlobal::GetFieldType(node).toStdString());
    };
    add(fieldName);
    QString xKey;
    if (isMsgPath && !xField.isEmpty() && model.HasField(PlotGlobal::GetFieldName(xField).toStdString())) {
        add(PlotGlobal::GetFieldName(xField));
        xKey = xField;
    }
    record.UpdateSelectionDataFromDefinition(GetCurveIndex(), selection);
    record.UpdateSelection(GetCurveIndex(), xKey.toStdString(), yKey.toStdString());
}

bool PlotAxisItem::SetSelectField(const QString& path, bool isRestore)
{
    const QString fieldName = PlotGlobal::GetFieldName(path);
    const PlotTopicMsg* node = model.GetTopicMsg(fieldName.toStdString());
    if (node == nullptr) {
        editLabel->ShowWarning(true);
        return false;
    }
    editLabel->ShowWarning(false);
    const QString type = PlotGlobal::GetFieldType(node);
    const QString arrayName = PlotGlobal::GetArrayName(node);
    lineData.yField = fieldName;
    lineData.yFieldType = type;
    lineData.selectedArrayName = arrayName;
    lineData.isArray = !arrayName.isEmpty();
    if (arrayName.isEmpty()) {
        externEdit->hide();
        lineData.curveName = fieldName;
        Subscribe(fieldName);
        ResetCurve();
        UpdateCurve(fieldName, type);
        return true;
    }
    externEdit->show();
    const int index = PlotGlobal::GetArrayIndex(path);
    if (isRestore && index >= 0) {
        externEdit->SetTitle(QString(".%1").arg(index), true);
        lineData.curveName = PlotGlobal::GetCurveName(fieldName, arrayName, index);
        Subscribe(lineData.curveName);
        ResetCurve();
        UpdateCurve(lineData.curveName, type);
        return true;
    }
    // An element is to be chosen once a message tells how many there are.
    lineData.curveName.clear();
    externEdit->SetTitle(QString(), true);
    Subscribe(fieldName);
    ShowArrayItems();
    Q_EMIT SignalLineChanged();
    return true;
}

void PlotAxisItem::ShowArrayItems()
{
    waitingForArray = true;
    QTimer::singleShot(arrayItemsDelay, this, [this]() {
        waitingForArray = false;
        const int count = record.GetArraySize(PlotGlobal::GetTopic(lineData.yField).toStdString(),
                                              lineData.selectedArrayName.toStdString());
        externView->SetItems(PlotGlobal::GetArrayItems(count));
        if (isVisible() && count > 0) {
            ShowExternItemView(true);
        }
    });
}

void PlotAxisItem::SlotEditFinished(const QString& text)
{
    ShowItemView(false);
    if (text.isEmpty()) {
        return;
    }
    SetSelectField(text, false);
}

void PlotAxisItem::SlotEditFinishedExtern(const QString& text)
{
    ShowExternItemView(false);
    const int index = PlotGlobal::GetArrayIndex(text);
    if (index < 0 || lineData.selectedArrayName.isEmpty()) {
        externEdit->ShowWarning(true);
        return;
    }
    externEdit->ShowWarning(false);
    lineData.curveName = PlotGlobal::GetCurveName(lineData.yField, lineData.selectedArrayName, index);
    Subscribe(lineData.curveName);
    ResetCurve();
    UpdateCurve(lineData.curveName, lineData.yFieldType);
}

void PlotAxisItem::UpdateCurve(const QString& field, const QString&)
{
    sampler.SetYField(field);
    Q_EMIT SignalStartDrawCurve(GetCurveIndex(), field);
    Q_EMIT SignalLineChanged();
    StartUpdateCurve();
}

void PlotAxisItem::SetCurveInfoFromCfg(const AxisData& axis, const AxisLineData& line)
{
    lineData = line;
    SetCurveColor(QColor(line.color));
    SetIsMsgPath(axis.isMsgPath);
    if (axis.isMsgPath) {
        SetXFieldName(axis.curveName.isEmpty() ? axis.xField : axis.curveName);
    }
    editLabel->SetTitle(line.yField, true);
    if (line.isArray && !line.curveName.isEmpty()) {
        const int index = PlotGlobal::GetArrayIndex(line.curveName);
        externEdit->SetTitle(index >= 0 ? QString(".%1").arg(index) : QString(), true);
        externEdit->show();
    }
}

void PlotAxisItem::StartUpdateCurve()
{
    if (!lineData.curveName.isEmpty()) {
        sampler.StartUpdateCurve();
    }
}

void PlotAxisItem::StopUpdateCurve()
{
    sampler.StopUpdateCurve();
}

void PlotAxisItem::ResetCurve()
{
    sampler.ResetCurve();
}

void PlotAxisItem::PlaceView(PlotItemView* view, QWidget* under)
{
    view->setFixedWidth(std::max(under->width(), 240));
    view->move(under->mapToGlobal(QPoint(0, under->height() + 2)));
    view->show();
    view->raise();
}

void PlotAxisItem::ShowItemView(bool show)
{
    if (!show) {
        itemView->hide();
        return;
    }
    itemView->SetItems(model.GetFieldList());
    itemView->SlotLineEditTextChanged(QString());
    PlaceView(itemView, editLabel);
}

void PlotAxisItem::ShowExternItemView(bool show)
{
    if (show) {
        PlaceView(externView, externEdit);
    } else {
        externView->hide();
    }
}

bool PlotAxisItem::IsItemViewVisible() const
{
    return itemView->isVisible() || externView->isVisible();
}

void PlotAxisItem::SlotCheckFrequency()
{
    if (!isMsgPath || editLabel->HasWarning() || IsItemViewVisible()) {
        return;
    }
    ShowWarningLabel(!HasNewPoint());
}

void PlotAxisItem::ShowWarningLabel(bool show)
{
    // An array waiting for its first message is not late.
    warningLabel->setVisible(show && !waitingForArray && !lineData.curveName.isEmpty());
}

bool PlotAxisItem::IsWarningShown() const
{
    return !warningLabel->isHidden();
}

bool PlotAxisItem::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == colorLabel && event->type() == QEvent::MouseButtonPress) {
        if (colorWidget == nullptr) {
            colorWidget = new PlotColorWidget(color, this);
            colorWidget->setAttribute(Qt::WA_DeleteOnClose);
            connect(colorWidget, &PlotColorWidget::SignalSelectedColor, this, &PlotAxisItem::SetCurveColor);
        }
        colorWidget->show();
        colorWidget->raise();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace rviz_plugin

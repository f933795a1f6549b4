#include "plot_template_widget.h"

#include "plot_save_as_template_dialog.h"
#include "plot_template_item.h"
#include "plot_template_settings_dialog.h"

#include <QFrame>
#include <QVBoxLayout>

namespace rviz_plugin {

namespace {
const char* const imagePath = ":/plotqrc/assets/image/";
QString Image(const char* name)
{
    return QString(imagePath) + name;
}
} // namespace

PlotTemplateWidget::PlotTemplateWidget(CurrentTemplate current, QWidget* parent)
    : QWidget(parent, Qt::Popup), currentTemplate(std::move(current))
{
    setObjectName("plotTemplateWidget");
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet("QWidget#plotTemplateWidget {background:#FFFFFF; border:1px solid #E2E2E2;}");
    setFixedWidth(220);
    saveAsDialog = new PlotSaveAsTemplateDialog();
    settingsDialog = new PlotTemplateSettingsDialog();
    connect(saveAsDialog, &PlotSaveAsTemplateDialog::SignalSaveBtnClicked, this,
            &PlotTemplateWidget::SlotSaveAsSaveButtonClicked);
    connect(settingsDialog, &PlotTemplateSettingsDialog::SignalSettingsSaveButtonClicked, this,
            &PlotTemplateWidget::SlotSettingsSaveButtonClicked);
    connect(settingsDialog, &PlotTemplateSettingsDialog::SignalDeleteButtonClicked, this,
            &PlotTemplateWidget::SlotDeleteButtonClicked);
}

PlotTemplateWidget::~PlotTemplateWidget()
{
    delete saveAsDialog;
    delete settingsDialog;
}

void PlotTemplateWidget::InitTemplateWidget()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 4, 0, 4);
    layout->setSpacing(0);
    listLayout = new QVBoxLayout();
    listLayout->setSpacing(0);
    layout->addLayout(listLayout);
    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setStyleSheet("color:#E2E2E2;");
    layout->addWidget(line);
    saveAsItem = new PlotTemplateItem(Image("save_as_template.png"), "Save as Template", this);
    settingsItem = new PlotTemplateItem(Image("template_settings.png"), "Template Settings", this);
    layout->addWidget(saveAsItem);
    layout->addWidget(settingsItem);
    connect(saveAsItem, &PlotTemplateItem::SignalClicked, this, &PlotTemplateWidget::SlotSaveAsItemClicked);
    connect(settingsItem, &PlotTemplateItem::SignalClicked, this, &PlotTemplateWidget::SlotSettingsItemClicked);
    InitDefaultTemplateItem();
    UpdateActions();
}

void PlotTemplateWidget::InitDefaultTemplateItem()
{
    defaultItem = NewTemplateItem(DefaultPlotTemplate());
    defaultItem->SetIcon(Image("default_template.png"));
}

PlotTemplateItem* PlotTemplateWidget::NewTemplateItem(const PlotTemplateData& data)
{
    auto* item = new PlotTemplateItem(Image("template.png"), data.templateName, this);
    item->SetData(data);
    listLayout->addWidget(item);
    connect(item, &PlotTemplateItem::SignalClicked, this, &PlotTemplateWidget::SlotTemplateItemClicked);
    return item;
}

void PlotTemplateWidget::AddTemplateItem(const PlotTemplateData& data)
{
    if (templateItems.size() >= maxTemplateCount) {
        return;
    }
    templateItems.push_back(NewTemplateItem(data));
    UpdateActions();
}

void PlotTemplateWidget::UpdateActions()
{
    saveAsItem->SetItemEnabled(templateItems.size() < maxTemplateCount);
    const bool settings = !templateItems.isEmpty();
    settingsItem->SetItemEnabled(settings);
    settingsItem->SetIcon(Image(settings ? "template_settings.png" : "template_settings_disabled.png"));
    setFixedHeight((static_cast<int>(templateItems.size()) + 3) * PlotTemplateItem::height + 10);
}

QStringList PlotTemplateWidget::Names() const
{
    QStringList names{defaultItem->GetText()};
    for (const PlotTemplateItem* item : templateItems) {
        names.append(item->GetText());
    }
    return names;
}

void PlotTemplateWidget::SlotTemplateItemClicked(PlotTemplateItem* item)
{
    hide();
    Q_EMIT SignalApplyTemplate(item->GetData());
}

void PlotTemplateWidget::SlotSaveAsItemClicked()
{
    hide();
    int number = templateItems.size() + 1;
    while (Names().contains(QString("Template%1").arg(number))) {
        ++number;
    }
    saveAsDialog->SetNames(QString("Template%1").arg(number), Names());
    saveAsDialog->show();
    saveAsDialog->raise();
}

void PlotTemplateWidget::SlotSaveAsSaveButtonClicked(const QString& name)
{
    if (templateItems.size() >= maxTemplateCount) {
        return;
    }
    PlotTemplateData data = currentTemplate();
    data.templateName = name;
    templateItems.push_back(NewTemplateItem(data));
    UpdateActions();
    Q_EMIT SignalConfigChanged();
}

void PlotTemplateWidget::SlotSettingsItemClicked()
{
    hide();
    QStringList names;
    for (const PlotTemplateItem* item : templateItems) {
        names.append(item->GetText());
    }
    settingsDialog->UpdateTemplateNames(names);
    settingsDialog->show();
    settingsDialog->raise();
}

void PlotTemplateWidget::SlotSettingsSaveButtonClicked(const QMap<QString, QString>& renamed)
{
    for (PlotTemplateItem* item : templateItems) {
        const auto found = renamed.find(item->GetText());
        if (found != renamed.end()) {
            item->SetText(found.value());
        }
    }
    Q_EMIT SignalConfigChanged();
}

void PlotTemplateWidget::SlotDeleteButtonClicked(const QString& name)
{
    for (int i = 0; i < templateItems.size(); ++i) {
        if (templateItems[i]->GetText() == name) {
            delete templateItems[i];
            templateItems.remove(i);
            break;
        }
    }
    UpdateActions();
    Q_EMIT SignalConfigChanged();
}

void PlotTemplateWidget::hideEvent(QHideEvent* event)
{
    Q_EMIT SignalPlotTemplateClosed();
    QWidget::hideEvent(event);
}

} // namespace rviz_plugin

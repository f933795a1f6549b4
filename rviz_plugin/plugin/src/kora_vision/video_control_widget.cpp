#include "video_control_widget.h"

#include "non_interactive_render_panel.h"
#include "topic_combobox.h"

#include "kora_vision_logic/vision_name.h"
#include "widgets/buttons.h"
#include "topic_rename/rename_data.h"
#include "widgets/labels.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLineEdit>
#include <QVBoxLayout>

#ifndef Q_MOC_RUN
#include <rviz/panel_dock_widget.h>
#endif

namespace rviz_plugin {

namespace {
const QSize popupMinimumSize(440, 248);
const QSize videoMinimumSize(192, 108);
constexpr int comboboxWidth = 220;
constexpr int aliasWidth = 190;
const char* const cameraIcon = ":/videoqrc/assets/image/ic_camera.png";
} // namespace

VideoControlWidget::VideoControlWidget(QWidget* parent) : QWidget(parent) {}

VideoControlWidget::~VideoControlWidget()
{
    // A popped-out dock belongs to rviz's main window; take it down with the item.
    if (popupPanel != nullptr) {
        popupPanel->disconnect(this);
        popupPanel->deleteLater();
    }
}

void VideoControlWidget::Init(CreatePopupPanelCallback callback)
{
    createPopupPanel = std::move(callback);
    setAttribute(Qt::WA_StyledBackground, true);

    topicLabel = new Label("Topic:", this);
    topicCombobox = new TopicCombobox(this);
    topicCombobox->setObjectName("VideoControlWidget_topicCombobox");
    topicCombobox->setFixedWidth(comboboxWidth);
    aliasLabel = new Label(QString(), this);
    aliasLabel->setObjectName("VideoControlWidget_aliasLabel");
    popBt = new IconButton(":/videoqrc/assets/image/ic_pop.png", "Zoom In", this);
    popBt->setObjectName("VideoControlWidget_popBt");
    deleteBt = new IconButton(":/videoqrc/assets/image/ic_delete.png", "Delete", this);
    deleteBt->setObjectName("VideoControlWidget_deleteBt");

    pictureLabel = new QLabel(this);
    pictureLabel->setObjectName("VideoControlWidget_pictureLabel");
    pictureLabel->setStyleSheet("border-image: url(:/videoqrc/assets/image/ic_background.png);");
    pictureLabel->hide();

    renderPanel = new NonInteractiveRenderPanel(this);
    renderPanel->setMinimumSize(videoMinimumSize);
    renderPanel->installEventFilter(this);

    auto* topBar = new QHBoxLayout();
    topBar->setContentsMargins(0, 0, 0, 0);
    topBar->addWidget(topicLabel);
    topBar->addWidget(topicCombobox);
    topBar->addWidget(aliasLabel);
    topBar->addStretch(1);
    topBar->addWidget(popBt);
    topBar->addWidget(deleteBt);

    videoLayout = new QVBoxLayout();
    videoLayout->setContentsMargins(0, 0, 0, 0);
    videoLayout->addWidget(pictureLabel, 1);
    videoLayout->addWidget(renderPanel, 1);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->addLayout(topBar);
    layout->addLayout(videoLayout, 1);

    // A topic applies when the user picks it from the list or finishes typing (Enter, focus out), not
    // per key press: each change of topic builds a decoding pipeline.
    const auto applyTopic = [this]() {
        const QString text = topicCombobox->currentText();
        UpdateCameraAlias();
        Q_EMIT TopicComboboxTextChanged(text);
    };
    connect(topicCombobox, QOverload<int>::of(&QComboBox::activated), this, applyTopic);
    connect(topicCombobox->lineEdit(), &QLineEdit::editingFinished, this, applyTopic);
    connect(popBt, &QPushButton::clicked, this, &VideoControlWidget::PopupPanel);
    connect(deleteBt, &QPushButton::clicked, this, &VideoControlWidget::SubItem);
}

void VideoControlWidget::SetComboboxCurrentText(const QString& text)
{
    if (topicCombobox->currentText() == text) {
        return;
    }
    topicCombobox->setCurrentText(text);
    if (topicCombobox->lineEdit() != nullptr) {
        topicCombobox->lineEdit()->setCursorPosition(0);
    }
    UpdateCameraAlias();
}

void VideoControlWidget::UpdateCameraAlias()
{
    RenameData names;
    names.ReadAliasFromFile();
    SetCameraAlias(QString::fromStdString(names.GetAlias(topicCombobox->currentText().toStdString())));
}

void VideoControlWidget::SetCameraAlias(const QString& alias)
{
    cameraAlias = alias;
    aliasLabel->setText(RenameData::GetDisplayCameraName(alias, aliasLabel->font(), aliasWidth));
    aliasLabel->setToolTip(alias);
    SetPopupPanelWindowTitle(TitleText());
}

QString VideoControlWidget::TitleText() const
{
    return cameraAlias.isEmpty() ? topicCombobox->currentText() : cameraAlias;
}

void VideoControlWidget::PopupPanel()
{
    if (popupPanel != nullptr || !createPopupPanel) {
        return;
    }
    popBt->setEnabled(false);
    pictureLabel->show();
    popupContents = new QWidget();
    popupContents->setContentsMargins(4, 0, 4, 4);
    popupContents->setMinimumSize(popupMinimumSize);
    auto* contentsLayout = new QVBoxLayout(popupContents);
    contentsLayout->setContentsMargins(0, 0, 0, 0);

    popupPanel = createPopupPanel(noImageTopicText, popupContents);
    if (popupPanel == nullptr) {
        // No window to pop out into: the video stays in the wall.
        delete popupContents;
        popupContents = nullptr;
        popBt->setEnabled(true);
        pictureLabel->hide();
        return;
    }
    popupPanel->setIcon(QIcon(cameraIcon));
    SetPopupPanelWindowTitle(TitleText());
    connect(popupPanel, &rviz::PanelDockWidget::closed, this, &VideoControlWidget::EmbedPanel);
    contentsLayout->addWidget(renderPanel);
    if (popupGeometry.isValid()) {
        popupPanel->setGeometry(popupGeometry);
    }
    renderPanel->show();
    popupPanel->show();
}

void VideoControlWidget::EmbedPanel()
{
    if (popupPanel == nullptr) {
        return;
    }
    popBt->setEnabled(true);
    pictureLabel->hide();
    AddVideoWidget(renderPanel);
    popupPanel->disconnect(this);
    popupGeometry = popupPanel->geometry();
    // This may run inside the dock's own closed() signal: delete it once that has returned.
    popupPanel->deleteLater();
    popupPanel = nullptr;
    popupContents = nullptr;
}

void VideoControlWidget::SetPopupPanelVisible(bool visible)
{
    if (popupPanel != nullptr) {
        popupPanel->setVisible(visible);
    }
}

bool VideoControlWidget::IsPopupPanelVisible() const
{
    return popupPanel != nullptr && popupPanel->isVisible();
}

void VideoControlWidget::SetPopupPanelWindowTitle(QString title)
{
    if (popupPanel != nullptr) {
        popupPanel->setWindowTitle(title.isEmpty() ? QString(noImageTopicText) : title);
    }
}

void VideoControlWidget::SetPopupButtonVisible(bool visible)
{
    popBt->setVisible(visible);
}

void VideoControlWidget::AddVideoWidget(QWidget* widget)
{
    videoLayout->addWidget(widget, 1);
    widget->show();
}

void VideoControlWidget::SubItem()
{
    EmbedPanel();
    Q_EMIT RemoveItem();
}

bool VideoControlWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == renderPanel && event->type() == QEvent::MouseButtonPress) {
        Q_EMIT MousePressSignal();
    }
    return QWidget::eventFilter(watched, event);
}

void VideoControlWidget::mousePressEvent(QMouseEvent* event)
{
    Q_EMIT MousePressSignal();
    QWidget::mousePressEvent(event);
}

} // namespace rviz_plugin

// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/compare/HDRCompareView.h"

#include "core/AppViewModel.h"
#include "platform/FileManager.h"
#include "ui/Theme.h"
#include "ui/WindowPlacement.h"
#include "ui/compare/ComparePanelProvider.h"
#include "ui/compare/CompareToolbar.h"
#include "ui/compare/DisplayHeadroom.h"
#include "ui/compare/SdrBanner.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QClipboard>
#include <QDBusConnection>
#include <QDesktopServices>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSlider>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr double kBannerHeadroom = 1.2; // the badge and banner call a display HDR above this

QString existingFile(const std::optional<QString> &path)
{
    return path && !path->isEmpty() && QFileInfo::exists(*path) ? *path : QString();
}

int indexOf(const QList<PhotoRecord> &records, const PhotoRecord &record)
{
    for (int i = 0; i < records.size(); ++i) {
        if (records.at(i).id() == record.id())
            return i;
    }
    return 0;
}

} // namespace

HDRCompareView::HDRCompareView(AppViewModel &model, const PhotoRecord &record,
                               const QList<PhotoRecord> &allRecords, ComparePanelProvider *provider,
                               QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_provider(provider)
    , m_currentRecord(record)
    , m_allRecords(allRecords.isEmpty() ? QList<PhotoRecord> { record } : allRecords)
    , m_currentIndex(indexOf(m_allRecords, record))
    , m_followsHistory(!allRecords.isEmpty() && allRecords == model.historyRecords())
{
    setObjectName(u"hdrCompareView"_s);
    setMinimumSize(kMinimumSize);
    buildLayout();
    connectControls();
    installShortcuts();
    connect(&m_model, &AppViewModel::currentLanguageChanged, this, &HDRCompareView::retranslate);
    connect(&m_model, &AppViewModel::historyRecordsChanged, this, &HDRCompareView::takeMoreHistory);
    connect(&m_model, &AppViewModel::totalFilteredCountChanged, this,
            &HDRCompareView::updatePosition);
    retranslate();
    showRecord();
    sync();
}

HDRCompareView::~HDRCompareView() = default;

QString HDRCompareView::sdrPath(const PhotoRecord &record)
{
    return existingFile(record.jpgPath);
}

QString HDRCompareView::hdrPath(const PhotoRecord &record)
{
    return existingFile(record.outputPath);
}

QLabel *HDRCompareView::overlayLabel(const QString &name)
{
    auto *label = new QLabel(m_viewer);
    label->setObjectName(name);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setStyleSheet(
        u"background: rgba(0, 0, 0, 0.55); color: #ecedef; border-radius: 6px; padding: 4px 9px;"_s);
    return label;
}

void HDRCompareView::buildLayout()
{
    m_toolbar = new CompareToolbar(m_model, this);
    connect(m_toolbar, &CompareToolbar::compactWidthChanged, this,
            &HDRCompareView::updateMinimumSize);
    m_banner = new SdrBanner(m_model, this);
    m_viewer = new EdrViewer(m_model.t("edr_no_gl"), this);
    m_viewer->installEventFilter(this);
    m_sdrLabel = overlayLabel(u"sdrSideLabel"_s);
    m_hdrLabel = overlayLabel(u"hdrSideLabel"_s);
    m_notice = overlayLabel(u"viewerNotice"_s);
    m_readout = overlayLabel(u"pixelReadout"_s);
    m_readout->setStyleSheet(m_readout->styleSheet() + u"font-family: monospace;"_s);
    m_readout->hide();

    m_footer = new QWidget(this);
    m_footer->setObjectName(u"compareFooter"_s);
    m_dragHint = new QLabel(m_footer);
    m_zoomHint = new QLabel(m_footer);
    for (QLabel *hint : { m_dragHint, m_zoomHint })
        hint->setProperty("role", u"tertiary"_s);
    auto *footer = new QHBoxLayout(m_footer);
    footer->setContentsMargins(14, 4, 14, 6);
    footer->addWidget(m_dragHint);
    footer->addStretch(1);
    footer->addWidget(m_zoomHint);

    auto *bannerBox = new QVBoxLayout;
    bannerBox->setContentsMargins(12, 0, 12, 8);
    bannerBox->addWidget(m_banner);
    auto *column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_toolbar);
    column->addLayout(bannerBox);
    column->addWidget(m_viewer, 1);
    column->addWidget(m_footer);
    auto *root = new QHBoxLayout(this);
    root->setContentsMargins(0, 0, 0, 0);
    root->setSpacing(0);
    root->addLayout(column, 1);

    if (m_provider) {
        m_inspector = m_provider->createInspector(m_model, this);
        m_histogram = m_provider->createHistogram(m_model, m_viewer);
    }
    if (m_histogram) {
        // Floating over the picture, it needs its own backdrop to stay
        // readable over bright skies and white walls.
        if (m_histogram->objectName().isEmpty())
            m_histogram->setObjectName(u"compareHistogram"_s);
        m_histogram->setAttribute(Qt::WA_StyledBackground);
        m_histogram->setContentsMargins(10, 8, 10, 8);
        m_histogram->setStyleSheet(
            u"#%1 { background: rgba(18, 19, 22, 0.86); border: 1px solid %2; border-radius: 10px; }"_s
                .arg(m_histogram->objectName(), theme::css(theme::kBorder)));
    }
    if (m_inspector) {
        auto *pane = new QScrollArea(this);
        pane->setObjectName(u"inspectorPane"_s);
        pane->setFrameShape(QFrame::NoFrame);
        pane->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        pane->setWidgetResizable(true);
        pane->setWidget(m_inspector);
        pane->setFixedWidth(m_inspector->sizeHint().width()
                            + pane->verticalScrollBar()->sizeHint().width());
        m_inspectorPane = pane;
        root->addWidget(pane);
    }
    m_toolbar->inspector->setVisible(m_inspector != nullptr);
    m_toolbar->histogram->setVisible(m_histogram != nullptr);
}

void HDRCompareView::connectControls()
{
    CompareToolbar *bar = m_toolbar;
    connect(bar->previous, &QToolButton::clicked, this, &HDRCompareView::showPreviousPhoto);
    connect(bar->next, &QToolButton::clicked, this, &HDRCompareView::showNextPhoto);
    connect(bar->modes, &QButtonGroup::idClicked, this, [this](int id) {
        change([id](CompareState &s) {
            s.compareMode = compareModeFromRaw(id).value_or(s.compareMode);
        });
    });
    connect(bar->zebra, &QToolButton::toggled, this,
            [this](bool on) { change([on](CompareState &s) { s.isZebraEnabled = on; }); });
    connect(bar->zebraThreshold, &QSlider::valueChanged, this, [this](int tenths) {
        change([tenths](CompareState &s) { s.zebraThreshold = float(tenths) / 10.0f; });
    });
    connect(bar->shadowZebra, &QCheckBox::toggled, this,
            [this](bool on) { change([on](CompareState &s) { s.isShadowZebraEnabled = on; }); });
    connect(bar->shadowThreshold, &QSlider::valueChanged, this, [this](int hundredths) {
        change([hundredths](CompareState &s) { s.shadowThreshold = float(hundredths) / 100.0f; });
    });
    connect(bar->histogram, &QToolButton::toggled, this,
            [this](bool on) { change([on](CompareState &s) { s.isHistogramPresented = on; }); });
    connect(bar->inspector, &QToolButton::toggled, this,
            [this](bool on) { change([on](CompareState &s) { s.isInspectorPresented = on; }); });
    connect(m_banner->toneMapModes, &QButtonGroup::idClicked, this, [this](int id) {
        change([id](CompareState &s) {
            s.sdrToneMapMode = toneMapModeFromRaw(id).value_or(s.sdrToneMapMode);
        });
    });
    connect(m_banner->headroom, &QSlider::valueChanged, this, [this](int tenths) {
        change([tenths](CompareState &s) { s.simulatedHeadroom = tenths / 10.0; });
    });
    connect(bar->copyPath, &QAction::triggered, this,
            [this] { QGuiApplication::clipboard()->setText(hdrPath(m_currentRecord)); });
    connect(bar->reveal, &QAction::triggered, this, [this] {
        if (!m_fileManager)
            m_fileManager = new FileManager(QDBusConnection::sessionBus(), this);
        m_fileManager->showItem(hdrPath(m_currentRecord));
    });
    connect(bar->openDefault, &QAction::triggered, this,
            [this] { QDesktopServices::openUrl(QUrl::fromLocalFile(hdrPath(m_currentRecord))); });
    m_viewer->onSplitChanged
        = [this](double split) { change([split](CompareState &s) { s.splitPosition = split; }); };
    connect(m_viewer, &EdrViewer::pixelReadoutChanged, this, &HDRCompareView::showReadout);
    connect(m_viewer, &EdrViewer::picturesLoaded, this, [this] { sync(); });
}

void HDRCompareView::installShortcuts()
{
    const auto add = [this](int key, auto &&action) {
        auto *shortcut = new QShortcut(QKeySequence(key), this);
        shortcut->setContext(Qt::WindowShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    add(Qt::Key_Z,
        [this] { change([](CompareState &s) { s.isZebraEnabled = !s.isZebraEnabled; }); });
    add(Qt::Key_H, [this] {
        if (m_histogram)
            change([](CompareState &s) { s.isHistogramPresented = !s.isHistogramPresented; });
    });
    add(Qt::Key_Left, [this] { showPreviousPhoto(); });
    add(Qt::Key_Right, [this] { showNextPhoto(); });
    add(Qt::Key_Space, [this] {
        change([](CompareState &s) { s.compareMode = nextCompareMode(s.compareMode); });
    });
    add(Qt::Key_Tab, [this] { change([](CompareState &s) { s.isCleanMode = !s.isCleanMode; }); });
}

void HDRCompareView::retranslate()
{
    m_toolbar->retranslate();
    m_banner->retranslate();
    m_sdrLabel->setText(m_model.t("edr_label_sdr"));
    m_hdrLabel->setText(m_model.t("edr_label_hdr"));
    m_dragHint->setText(m_model.t("edr_drag_hint"));
    m_zoomHint->setText(m_model.t("edr_zoom_hint"));
    sync();
}

void HDRCompareView::showPreviousPhoto()
{
    if (m_currentIndex - 1 < 0)
        return;
    m_currentRecord = m_allRecords.at(--m_currentIndex);
    showRecord();
}

void HDRCompareView::showNextPhoto()
{
    if (m_currentIndex + 1 >= m_allRecords.size()) {
        // The end of the loaded page, not of the history: ask for the next one.
        if (m_followsHistory && m_model.hasMoreHistory()) {
            m_advanceWhenLoaded = true;
            m_model.loadMoreHistory();
        }
        return;
    }
    m_currentRecord = m_allRecords.at(++m_currentIndex);
    showRecord();
}

void HDRCompareView::showRecord()
{
    const PhotoRecord &record = m_currentRecord;
    updatePosition();
    m_toolbar->setPhoto(record.stem, record.rating,
                        record.peakStops ? QString::asprintf("%.2f", *record.peakStops) : u"—"_s);
    const QString sdr = sdrPath(record), hdr = hdrPath(record);
    if (sdr != m_viewer->currentSdrPath() || hdr != m_viewer->currentHdrPath())
        m_viewer->loadImages(sdr, hdr);
    if (m_inspector)
        m_provider->showInspectorRecord(m_inspector, record);
    if (m_histogram)
        m_provider->showHistogramRecord(m_histogram, record, hdr);
    sync();
    Q_EMIT recordChanged();
}

void HDRCompareView::updatePosition()
{
    qint64 count = m_allRecords.size();
    if (m_followsHistory)
        count = std::max(count, m_model.totalFilteredCount());
    m_toolbar->setPosition(m_currentIndex, int(count));
}

// A new page of the same list extends this window's; any other change (a
// search, a new sort) leaves the window on the list it was opened with.
void HDRCompareView::takeMoreHistory()
{
    if (!m_followsHistory)
        return;
    const QList<PhotoRecord> &now = m_model.historyRecords();
    if (now.size() <= m_allRecords.size() || now.mid(0, m_allRecords.size()) != m_allRecords) {
        m_followsHistory = now == m_allRecords;
        m_advanceWhenLoaded = false;
        updatePosition();
        return;
    }
    m_allRecords = now;
    if (std::exchange(m_advanceWhenLoaded, false))
        showNextPhoto();
    else
        updatePosition();
}

void HDRCompareView::setState(const CompareState &state)
{
    if (state == m_state)
        return;
    m_state = state;
    sync();
    Q_EMIT stateChanged();
}

void HDRCompareView::sync()
{
    syncControls();
    syncVisibility();
    const CompareState &s = m_state;
    EdrViewerSettings settings;
    settings.splitPosition = s.splitPosition;
    settings.compareMode = s.compareMode;
    settings.zebraEnabled = s.isZebraEnabled;
    settings.zebraThreshold = s.zebraThreshold;
    settings.toneMapMode = s.sdrToneMapMode;
    settings.shadowZebraEnabled = s.isShadowZebraEnabled;
    settings.shadowThreshold = s.shadowThreshold;
    settings.simulatedHeadroom = s.simulatedHeadroom;
    m_viewer->updateState(settings);
    placeOverlays();
    updateMinimumSize();
}

// Wide enough for the toolbar in its compact form (and the inspector beside
// it), but never wider than the screen.
void HDRCompareView::updateMinimumSize()
{
    int width = m_toolbar->minimumWidth();
    if (m_inspectorPane && m_inspectorPane->isVisibleTo(this))
        width += m_inspectorPane->width();
    width = std::max(width, kMinimumSize.width());
    if (isWindow() && screen())
        width = std::min(width, screen()->availableGeometry().width());
    setMinimumWidth(width);
}

void HDRCompareView::syncControls()
{
    const CompareState &s = m_state;
    // Setting a control must not come back as a change of the state.
    const QSignalBlocker blockers[]
        = { QSignalBlocker(m_toolbar->zebra),       QSignalBlocker(m_toolbar->zebraThreshold),
            QSignalBlocker(m_toolbar->shadowZebra), QSignalBlocker(m_toolbar->shadowThreshold),
            QSignalBlocker(m_toolbar->histogram),   QSignalBlocker(m_toolbar->inspector),
            QSignalBlocker(m_banner->headroom) };
    m_toolbar->modes->button(int(s.compareMode))->setChecked(true);
    m_toolbar->zebra->setChecked(s.isZebraEnabled);
    m_toolbar->zebraThreshold->setValue(int(std::lround(s.zebraThreshold * 10)));
    m_toolbar->shadowZebra->setChecked(s.isShadowZebraEnabled);
    m_toolbar->shadowThreshold->setValue(int(std::lround(s.shadowThreshold * 100)));
    m_toolbar->showThresholds(s.zebraThreshold, s.shadowThreshold);
    m_toolbar->histogram->setChecked(s.isHistogramPresented);
    m_toolbar->inspector->setChecked(s.isInspectorPresented);
    m_banner->setToneMapMode(s.sdrToneMapMode);
    m_banner->setSimulatedHeadroom(s.simulatedHeadroom);
}

void HDRCompareView::syncVisibility()
{
    const CompareState &s = m_state;
    const double headroom = displayheadroom::current(this);
    const bool clean = s.isCleanMode;
    m_toolbar->setDisplayHeadroom(headroom);
    m_toolbar->setVisible(!clean);
    m_banner->setVisible(!clean && !(headroom > kBannerHeadroom));
    m_footer->setVisible(!clean);
    if (m_inspectorPane) {
        const bool wasShown = m_inspectorPane->isVisible();
        m_inspectorPane->setVisible(!clean && s.isInspectorPresented);
        if (!wasShown && m_inspectorPane->isVisible())
            makeRoomForInspector();
    }
    if (m_histogram)
        m_histogram->setVisible(!clean && s.isHistogramPresented);
    m_sdrLabel->setVisible(!clean && s.compareMode != EDRCompareMode::HdrOnly);
    m_hdrLabel->setVisible(!clean && s.compareMode != EDRCompareMode::SdrOnly);
    QString notice;
    if (m_viewer->isLoading())
        notice = m_model.t("edr_loading");
    else if (m_viewer->sdrFromHdrFile())
        notice = m_model.t("edr_sdr_from_hdr");
    m_notice->setText(notice);
    m_notice->setVisible(!clean && !notice.isEmpty());
    if (clean)
        m_readout->hide();
}

void HDRCompareView::showReadout(const std::optional<EdrPixelReadout> &readout)
{
    if (!readout || m_state.isCleanMode) {
        m_readout->hide();
        return;
    }
    const edr::Rgba &v = readout->value;
    const double luma = 0.2126 * v.r + 0.7152 * v.g + 0.0722 * v.b;
    m_readout->setText(m_model.t("edr_pixel_readout",
                                 { readout->pixel.x(), readout->pixel.y(), double(v.r), double(v.g),
                                   double(v.b), std::log2(std::max(luma, 1e-6)) }));
    m_readout->adjustSize();
    m_readout->show();
    placeOverlays();
}

void HDRCompareView::placeOverlays()
{
    const QRect area = m_viewer->rect();
    const int margin = 12;
    for (QLabel *label : { m_sdrLabel, m_hdrLabel, m_notice })
        label->adjustSize();
    m_sdrLabel->move(margin, margin);
    m_hdrLabel->move(area.width() - m_hdrLabel->width() - margin, margin);
    m_notice->move((area.width() - m_notice->width()) / 2, margin + m_sdrLabel->height() + 8);
    m_readout->adjustSize();
    m_readout->move(margin, area.height() - m_readout->height() - margin);
    if (m_histogram) {
        // Wide enough for a long title ("HDR-Dynamikumfang-Histogramm") to
        // take one or two lines; its height follows the width it gets.
        const QSize room = area.size() - QSize(2 * margin, 2 * margin);
        QSize size = m_histogram->sizeHint().expandedTo(QSize(kFloatingHistogramWidth, 0));
        if (m_histogram->hasHeightForWidth())
            size.setHeight(m_histogram->heightForWidth(std::min(size.width(), room.width())));
        size = size.boundedTo(room);
        m_histogram->resize(size);
        m_histogram->move((area.width() - size.width()) / 2,
                          area.height() - size.height() - margin);
        m_histogram->raise();
        // The read-out stays in its corner unless the histogram is in the
        // way (a narrow window, a long read-out); then it sits just above.
        if (!m_histogram->isHidden() && m_readout->geometry().intersects(m_histogram->geometry()))
            m_readout->move(margin, m_histogram->y() - m_readout->height() - 6);
    }
    for (QLabel *label : { m_sdrLabel, m_hdrLabel, m_notice, m_readout })
        label->raise();
}

bool HDRCompareView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_viewer && event->type() == QEvent::Resize)
        placeOverlays();
    return QWidget::eventFilter(watched, event);
}

void HDRCompareView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    // The next compare window opens where the user left this one.
    if (isWindow())
        placement::save(this, u"compare"_s);
}

// The panel takes its width from the picture; a window too narrow for the
// toolbar beside the panel grows, as far as its screen allows.
void HDRCompareView::makeRoomForInspector()
{
    const int needed = m_toolbar->sizeHint().width() + m_inspectorPane->width();
    if (width() >= needed || !isWindow())
        return;
    int target = needed;
    if (const QScreen *shown = screen())
        target = std::min(target, shown->availableGeometry().width());
    if (target > width())
        resize(target, height());
}

} // namespace orvanta

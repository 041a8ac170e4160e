// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/InspectorView.h"

#include "core/AppViewModel.h"
#include "document/PhotoDocumentCache.h"
#include "engine/EngineLaunch.h"
#include "engine/EngineVersion.h"
#include "i18n/FormatArgs.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/history/AsyncThumbnailView.h"
#include "ui/history/HdrHistogramView.h"
#include "ui/history/RowMediaStore.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

QWidget *sectionHeader(const QString &symbol, const QString &title, QWidget *parent)
{
    auto *row = new QWidget(parent);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 10, 0, 2);
    layout->setSpacing(6);
    auto *icon = new QLabel(row);
    icon->setPixmap(icons::pixmap(symbol, theme::kAccent, 14, parent->devicePixelRatioF()));
    layout->addWidget(icon);
    auto *label = new QLabel(title.toUpper(), row);
    label->setProperty("role", u"section"_s);
    label->setWordWrap(true);
    layout->addWidget(label, 1);
    return row;
}

QLabel *valueLabel(const QString &key, const QString &text, QWidget *parent)
{
    auto *value = new QLabel(text, parent);
    value->setObjectName(u"inspectorValue_"_s + key);
    value->setWordWrap(true);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return value;
}

// A label on the left and its value on the right.
void addRow(QGridLayout *grid, const QString &label, const QString &key, const QString &value,
            QWidget *parent)
{
    const int row = grid->rowCount();
    auto *name = new QLabel(label, parent);
    name->setProperty("role", u"secondary"_s);
    name->setWordWrap(true);
    grid->addWidget(name, row, 0, Qt::AlignTop);
    QLabel *text = valueLabel(key, value, parent);
    text->setAlignment(Qt::AlignRight | Qt::AlignTop);
    grid->addWidget(text, row, 1);
}

// A symbol beside a value (the camera rows).
void addSymbolRow(QVBoxLayout *layout, const QString &symbol, const QString &key,
                  const QString &value, QWidget *parent)
{
    auto *row = new QHBoxLayout;
    auto *icon = new QLabel(parent);
    icon->setPixmap(icons::pixmap(symbol, theme::kTextSecondary, 14, parent->devicePixelRatioF()));
    icon->setFixedWidth(20);
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addWidget(valueLabel(key, value, parent), 1);
    layout->addLayout(row);
}

// A section of label/value rows under its header: returns the grid to fill.
QGridLayout *rowSection(QWidget *section, const QString &symbol, const QString &title)
{
    auto *layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(sectionHeader(symbol, title, section));
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setColumnStretch(1, 1);
    layout->addLayout(grid);
    return grid;
}

} // namespace

InspectorView::InspectorView(AppViewModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_headroom([] { return 1.0; })
    , m_enginePath([] { return resolveEngineBinary(EngineLocatorContext::system()); })
    , m_engineVersion(new EngineVersion(this))
{
    setObjectName(u"inspectorView"_s);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 12, 14, 14);
    layout->setSpacing(4);
    auto *header = new QHBoxLayout;
    m_title = new QLabel(this);
    m_title->setProperty("role", u"cardTitle"_s);
    m_title->setWordWrap(true);
    header->addWidget(m_title, 1);
    auto *close = new QToolButton(this);
    close->setObjectName(u"inspectorClose"_s);
    close->setProperty("flat", true);
    close->setIcon(icons::icon(u"xmark"_s, theme::kTextSecondary));
    connect(close, &QToolButton::clicked, this, &InspectorView::closeRequested);
    header->addWidget(close, 0, Qt::AlignTop);
    layout->addLayout(header);
    auto *photo = new QHBoxLayout;
    photo->setSpacing(10);
    m_thumbnail = new AsyncThumbnailView(QSize(96, 64), this);
    m_thumbnail->setObjectName(u"inspectorThumbnail"_s);
    photo->addWidget(m_thumbnail);
    m_stem = new QLabel(this);
    m_stem->setProperty("role", u"secondary"_s);
    m_stem->setWordWrap(true);
    photo->addWidget(m_stem, 1);
    layout->addLayout(photo);
    m_upper = new QVBoxLayout;
    layout->addLayout(m_upper);
    m_histogram = new HdrHistogramView(model, this);
    layout->addSpacing(6);
    layout->addWidget(m_histogram);
    m_lower = new QVBoxLayout;
    layout->addLayout(m_lower);
    layout->addStretch();
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &InspectorView::rebuild);
    connect(m_engineVersion, &EngineVersion::answered, this, &InspectorView::rebuild);
    rebuild();
}

void InspectorView::setEnginePathProvider(EnginePathProvider provider)
{
    m_enginePath = std::move(provider);
    rebuild();
}

void InspectorView::setDisplayHeadroomProvider(HeadroomProvider provider)
{
    m_headroom = provider ? std::move(provider) : HeadroomProvider([] { return 1.0; });
    rebuild();
}

void InspectorView::setRecord(const PhotoRecord &record)
{
    m_record = record;
    m_targetPath = metadataPathOf(record);
    m_metadata = ProPhotoMetadata();
    m_gainMap = GainMapSummary();
    m_fileRead = false;
    m_thumbnail->setPaths(record.outputPath.value_or(QString()),
                          record.jpgPath.value_or(QString()));
    rebuild();
    // The metadata, the gain map and the histogram come from the file's one
    // document, which the compare window and the quick preview share.
    m_document = PhotoDocumentCache::shared().document(m_targetPath);
    m_histogram->setFile(m_targetPath, record.peakStops);
    const auto read = [this, document = m_document.get()] {
        const auto done = [document](PhotoStage stage) {
            const StageStatus status = document->status(stage);
            return status == StageStatus::Loaded || status == StageStatus::Failed;
        };
        if (document != m_document.get() || m_fileRead || !done(PhotoStage::Metadata)
            || !done(PhotoStage::GainMap))
            return; // another record by now, or the other half still to come
        m_metadata = document->metadata();
        m_gainMap = document->gainMap();
        m_fileRead = true;
        rebuild();
        Q_EMIT loaded();
    };
    m_document->load(PhotoStage::Metadata, this, read);
    m_document->load(PhotoStage::GainMap, this, read);
}

QString InspectorView::valueText(const QString &labelKey) const
{
    const auto *label = findChild<QLabel *>(u"inspectorValue_"_s + labelKey);
    return label ? label->text() : QString();
}

void InspectorView::rebuild()
{
    m_title->setText(m_model.t("inspector_title"));
    m_stem->setText(m_record.stem);
    for (QVBoxLayout *box : { m_upper, m_lower }) {
        while (QLayoutItem *item = box->takeAt(0)) {
            delete item->widget();
            delete item;
        }
    }
    m_upper->addWidget(buildCameraSection());
    m_upper->addWidget(buildExposureSection());
    m_upper->addWidget(buildHdrRows());
    m_lower->addWidget(buildFileSection());
}

QWidget *InspectorView::buildCameraSection()
{
    auto *section = new QWidget(this);
    auto *layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(sectionHeader(u"camera.fill"_s, m_model.t("inspector_sec_camera"), section));
    const QString none = missingValuePlaceholder();
    const QString camera
        = m_metadata.cameraModel.value_or(m_metadata.cameraMake.value_or(m_record.stem));
    addSymbolRow(layout, u"camera"_s, u"camera"_s, camera, section);
    addSymbolRow(layout, u"camera.aperture"_s, u"lens"_s, m_metadata.lensModel.value_or(none),
                 section);
    addSymbolRow(layout, u"calendar"_s, u"date"_s, m_metadata.dateTimeOriginal.value_or(none),
                 section);
    return section;
}

QWidget *InspectorView::buildExposureSection()
{
    auto *section = new QWidget(this);
    auto *layout = new QVBoxLayout(section);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(
        sectionHeader(u"dial.low.fill"_s, m_model.t("inspector_sec_exposure"), section));
    auto *grid = new QGridLayout;
    grid->setSpacing(6);
    struct Tile
    {
        const char *key;
        QString value;
        const char *symbol;
        QColor color;
    };
    const Tile tiles[] = {
        { "inspector_aperture", m_metadata.apertureString(), "camera.aperture", theme::kCyan },
        { "inspector_shutter", m_metadata.shutterSpeedString(), "timer", theme::kOrange },
        { "inspector_focal_len", m_metadata.focalLengthString(),
          "arrow.up.left.and.down.right.and.arrow.up.right.and.down.left", theme::kPurple },
        { "inspector_exp_bias", m_metadata.exposureBiasString(), "rays", theme::kYellow },
    };
    for (int i = 0; i < 4; ++i) {
        auto *tile = new QFrame(section);
        tile->setProperty("role", u"inset"_s);
        auto *box = new QVBoxLayout(tile);
        box->setContentsMargins(8, 6, 8, 6);
        box->setSpacing(2);
        auto *head = new QHBoxLayout;
        auto *icon = new QLabel(tile);
        icon->setPixmap(icons::pixmap(QString::fromLatin1(tiles[i].symbol), tiles[i].color, 12,
                                      devicePixelRatioF()));
        head->addWidget(icon);
        auto *title = new QLabel(m_model.t(tiles[i].key), tile);
        title->setProperty("role", u"kpiLabel"_s);
        title->setWordWrap(true);
        head->addWidget(title, 1);
        box->addLayout(head);
        QLabel *value = valueLabel(QString::fromLatin1(tiles[i].key), tiles[i].value, tile);
        value->setStyleSheet(u"font-weight: 600; color: %1;"_s.arg(theme::css(tiles[i].color)));
        box->addWidget(value);
        grid->addWidget(tile, i / 2, i % 2);
    }
    layout->addLayout(grid);
    return section;
}

QWidget *InspectorView::buildHdrRows()
{
    auto *section = new QWidget(this);
    QGridLayout *grid = rowSection(section, u"sun.max.fill"_s, m_model.t("inspector_sec_hdr"));
    // Rows whose value the history does not have are left out, not shown empty.
    if (m_record.peakStops) {
        const double stops = *m_record.peakStops;
        addRow(grid, m_model.t("inspector_peak_stops"), u"inspector_peak_stops"_s,
               m_model.t("inspector_peak_value", { stops, std::exp2(stops) }), section);
    }
    addRow(grid, m_model.t("inspector_gainmap_spec"), u"inspector_gainmap_spec"_s, gainMapText(),
           section);
    if (m_record.numFaces) {
        const qint64 faces = *m_record.numFaces;
        addRow(grid, m_model.t("inspector_faces_detected"), u"inspector_faces_detected"_s,
               faces < 1 ? m_model.t("inspector_faces_none")
                         : m_model.t("inspector_faces_count", { faces }),
               section);
    }
    if (m_record.rawClipPct) {
        addRow(grid, m_model.t("inspector_bayer_clip"), u"inspector_bayer_clip"_s,
               formatPrintf(u"%.3f%%"_s, { *m_record.rawClipPct }), section);
    }
    addRow(grid, m_model.t("inspector_engine_version"), u"inspector_engine_version"_s,
           engineVersionText(), section);
    return section;
}

QWidget *InspectorView::buildFileSection()
{
    auto *section = new QWidget(this);
    QGridLayout *grid = rowSection(section, u"display"_s, m_model.t("inspector_sec_file_display"));
    addRow(grid, m_model.t("inspector_resolution"), u"inspector_resolution"_s,
           m_metadata.resolutionString(), section);
    addRow(grid, m_model.t("inspector_filesize"), u"inspector_filesize"_s,
           m_metadata.fileSizeString(), section);
    addRow(grid, m_model.t("inspector_display_cap"), u"inspector_display_cap"_s, displayText(),
           section);
    return section;
}

QString InspectorView::gainMapText() const
{
    if (!m_fileRead)
        return missingValuePlaceholder();
    if (!m_gainMap.present)
        return m_model.t("inspector_gainmap_none");
    // Shown to two decimals: a bound a hair below zero must read "0.00", not "-0.00".
    const auto shown = [](double stops) { return std::round(stops * 100.0) / 100.0 + 0.0; };
    return m_model.t("inspector_gainmap_detail",
                     { m_gainMap.kind, shown(m_gainMap.minStops), shown(m_gainMap.maxStops),
                       qint64(m_gainMap.channels) });
}

QString InspectorView::engineVersionText()
{
    const EngineVersion::Answer answer
        = m_engineVersion->versionOf(m_enginePath ? m_enginePath() : QString());
    switch (answer.state) {
    case EngineVersion::State::Known:
        return answer.text;
    case EngineVersion::State::Asking:
        return u"…"_s;
    case EngineVersion::State::Unavailable:
        break;
    }
    return m_model.t("inspector_engine_version_unknown");
}

QString InspectorView::displayText() const
{
    const double headroom = m_headroom();
    if (headroom > 1.0)
        return m_model.t("inspector_display_hdr", { headroom });
    return m_model.t("inspector_display_sdr");
}

} // namespace orvanta

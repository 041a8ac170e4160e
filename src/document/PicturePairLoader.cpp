// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "document/PicturePairLoader.h"

#include "document/PhotoDocumentCache.h"

#include <QPointer>

namespace orvanta {

namespace {

// Holds both documents until the pair is complete.
struct PairLoad
{
    std::shared_ptr<PhotoDocument> sdr;
    std::shared_ptr<PhotoDocument> hdr;
    bool hasHdrPath = false;
    QPointer<QObject> context;
    std::function<void(const EdrPicturePair &)> done;
    int pending = 2;

    void sideLoaded(const std::shared_ptr<PairLoad> &self)
    {
        if (--pending > 0)
            return;
        EdrPicturePair pair;
        if (hasHdrPath) {
            const Rendition hdrSide = hdr->rendition(true);
            pair.hdr = hdrSide.image;
            pair.hdrIssue = hdrSide.image.isNull() ? hdr->error(PhotoStage::HdrRendition)
                                                   : hdrSide.gainMapIssue;
            if (!pair.hdr.isNull())
                pair.imageSize = pair.hdr.size();
        }
        pair.sdr = sdr->rendition(false).image;
        if (!pair.sdr.isNull() || pair.hdr.isNull()) {
            done(pair);
            return;
        }
        // No camera JPEG: its place is taken by the Ultra HDR file's own base.
        hdr->load(PhotoStage::SdrRendition, context, [self, pair]() mutable {
            pair.sdr = self->hdr->rendition(false).image;
            pair.sdrFromHdrFile = !pair.sdr.isNull();
            self->done(pair);
        });
    }
};

} // namespace

void loadPicturePair(PhotoDocumentCache &cache, const QString &sdrPath, const QString &hdrPath,
                     QObject *context, std::function<void(const EdrPicturePair &)> done)
{
    auto load = std::make_shared<PairLoad>();
    load->hdr = cache.document(hdrPath);
    load->sdr = cache.document(sdrPath);
    load->hasHdrPath = !hdrPath.isEmpty();
    load->context = context;
    load->done = std::move(done);
    load->hdr->load(PhotoStage::HdrRendition, context, [load] { load->sideLoaded(load); });
    load->sdr->load(PhotoStage::SdrRendition, context, [load] { load->sideLoaded(load); });
}

} // namespace orvanta

// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/ProgressText.h"

#include "core/AppViewModel.h"

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

QString formatElapsed(qint64 seconds)
{
    const qint64 s = std::max<qint64>(seconds, 0);
    return u"%1:%2"_s.arg(s / 60, 2, 10, QLatin1Char('0')).arg(s % 60, 2, 10, QLatin1Char('0'));
}

QString progressLineText(const AppViewModel &model)
{
    if (model.totalPending() >= 1) {
        // Truncation toward zero: 0.999 is 99 %, never a premature 100 %.
        const auto percent = qint64(std::trunc(model.progressFraction() * 100.0));
        return model.t("card_progress_ratio",
                       { model.currentIndex(), model.totalPending(), percent });
    }
    if (model.scanPairs() >= 1)
        return model.t("card_pairs_found", { model.scanPairs() });
    return QString();
}

QString timeBadgeText(const AppViewModel &model)
{
    if (model.isRunning())
        return model.t("metric_elapsed_value", { formatElapsed(model.batchElapsedSeconds()) });
    if (model.currentDuration() > 0.0)
        return model.t("metric_duration", { model.currentDuration() });
    return model.t("metric_elapsed_value", { u"00:00"_s });
}

std::optional<qint64> estimateRemainingSeconds(qint64 totalPending, double progressFraction,
                                               qint64 elapsedSeconds)
{
    if (totalPending < 1 || elapsedSeconds <= 0)
        return std::nullopt;
    // Finished items (delivered or failed) are what the fraction counts; the
    // rounding absorbs the division that produced it.
    const auto finished
        = qint64(std::llround(std::clamp(progressFraction, 0.0, 1.0) * double(totalPending)));
    if (finished < 2 || finished >= totalPending)
        return std::nullopt;
    const double average = double(elapsedSeconds) / double(finished);
    return qint64(std::llround(average * double(totalPending - finished)));
}

QString timeLeftText(const AppViewModel &model)
{
    if (!model.isRunning())
        return QString();
    const auto remaining = estimateRemainingSeconds(model.totalPending(), model.progressFraction(),
                                                    model.batchElapsedSeconds());
    if (!remaining)
        return QString();
    const auto finished = std::llround(std::clamp(model.progressFraction(), 0.0, 1.0)
                                       * double(model.totalPending()));
    const double perPhoto
        = double(model.batchElapsedSeconds()) / double(std::max<qint64>(finished, 1));
    return model.t("card_time_left", { formatElapsed(*remaining) }) + u"  ·  "_s
        + model.t("metric_throughput_speed", { perPhoto });
}

} // namespace orvanta

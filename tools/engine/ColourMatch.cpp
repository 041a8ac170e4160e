// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ColourMatch.h"

#include <algorithm>
#include <cmath>

namespace orvanta::engine {

namespace {

constexpr size_t kMaxSamples = 30000; // plenty for nine unknowns, cheap at any size
constexpr size_t kMinSamples = 200;
constexpr int kToneBins = 21; // -9 .. +1 stops in half stops
constexpr double kUnmatchedShare = 0.5; // fewer inliers: not a rendering of this RAW
constexpr double kUnmatchedResidual = 0.25; // stops
constexpr double kInlierStops = 0.3; // a pixel this close to the fit agrees with it

using Matrix = std::array<double, 9>;

double lum(const float *p)
{
    return 0.2126 * p[0] + 0.7152 * p[1] + 0.0722 * p[2];
}
double lum(const double *p)
{
    return 0.2126 * p[0] + 0.7152 * p[1] + 0.0722 * p[2];
}

double smoothstep(double e0, double e1, double x)
{
    const double t = std::clamp((x - e0) / (e1 - e0), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

double median(std::vector<double> v)
{
    if (v.empty())
        return 0.0;
    auto mid = v.begin() + v.size() / 2;
    std::nth_element(v.begin(), mid, v.end());
    return *mid;
}

// One sample: RAW colour, JPG colour, and the target after the tone correction is taken out.
struct Sample
{
    double raw[3], sdr[3], target[3];
};

// Pixels both pictures hold well: no channel near clipping in either, not in deep shadow.
std::vector<Sample> wellExposed(const float *sdr, const float *raw, const float *brightness,
                                size_t n, double minLum, float maxBright, float maxRaw)
{
    std::vector<Sample> out;
    const size_t stride = std::max<size_t>(1, n / kMaxSamples);
    for (size_t i = 0; i < n; i += stride) {
        const float *s = sdr + i * 3, *r = raw + i * 3;
        if (brightness[i] >= maxBright || lum(s) < minLum)
            continue;
        if (std::max({ r[0], r[1], r[2] }) >= maxRaw || std::min({ r[0], r[1], r[2] }) <= 1e-5f
            || std::min({ s[0], s[1], s[2] }) <= 1e-4f)
            continue;
        out.push_back({ { r[0], r[1], r[2] }, { s[0], s[1], s[2] }, { s[0], s[1], s[2] } });
    }
    return out;
}

double det3(const Matrix &m)
{
    return m[0] * (m[4] * m[8] - m[5] * m[7]) - m[1] * (m[3] * m[8] - m[5] * m[6])
        + m[2] * (m[3] * m[7] - m[4] * m[6]);
}

bool invert3(const Matrix &m, Matrix &inv)
{
    const double d = det3(m);
    if (!std::isfinite(d) || std::abs(d) < 1e-300)
        return false;
    inv = { (m[4] * m[8] - m[5] * m[7]) / d, (m[2] * m[7] - m[1] * m[8]) / d,
            (m[1] * m[5] - m[2] * m[4]) / d, (m[5] * m[6] - m[3] * m[8]) / d,
            (m[0] * m[8] - m[2] * m[6]) / d, (m[2] * m[3] - m[0] * m[5]) / d,
            (m[3] * m[7] - m[4] * m[6]) / d, (m[1] * m[6] - m[0] * m[7]) / d,
            (m[0] * m[4] - m[1] * m[3]) / d };
    return true;
}

void predict(const Matrix &m, const double *r, double *out)
{
    for (int c = 0; c < 3; ++c)
        out[c] = m[c * 3] * r[0] + m[c * 3 + 1] * r[1] + m[c * 3 + 2] * r[2];
}

// Worst channel's error in stops between a prediction and the wanted colour.
double errorStops(const Matrix &m, const Sample &s)
{
    double p[3];
    predict(m, s.raw, p);
    double worst = 0.0;
    for (int c = 0; c < 3; ++c)
        worst = std::max(worst, std::abs(std::log2(std::max(p[c], 1e-7) / s.target[c])));
    return worst;
}

// Weighted least squares, relative errors (weight 1/luminance squared). With
// `diagonal`, per-channel gains; otherwise the full matrix, unless the
// colours seen span too little of the space to pin it down.
bool solve(const std::vector<const Sample *> &in, bool diagonal, Matrix &m)
{
    Matrix a {};
    double b[3][3] {}; // b[c][k] = sum w r_k t_c
    for (const Sample *s : in) {
        const double w = 1.0 / std::max(1e-8, lum(s->target) * lum(s->target));
        for (int j = 0; j < 3; ++j)
            for (int k = 0; k < 3; ++k) {
                a[j * 3 + k] += w * s->raw[j] * s->raw[k];
                b[j][k] += w * s->raw[k] * s->target[j];
            }
    }
    if (diagonal) {
        m = {};
        for (int c = 0; c < 3; ++c)
            m[c * 4] = a[c * 4] > 0 ? b[c][c] / a[c * 4] : 1.0;
        return m[0] > 0 && m[4] > 0 && m[8] > 0;
    }
    // Condition, judged on the normalised normal matrix (unit diagonal).
    Matrix norm;
    for (int j = 0; j < 3; ++j)
        for (int k = 0; k < 3; ++k)
            norm[j * 3 + k] = a[j * 3 + k] / std::sqrt(a[j * 4] * a[k * 4]);
    Matrix inv;
    if (!(det3(norm) > 1e-5) || !invert3(a, inv))
        return false;
    for (int c = 0; c < 3; ++c)
        for (int k = 0; k < 3; ++k)
            m[c * 3 + k]
                = inv[k * 3] * b[c][0] + inv[k * 3 + 1] * b[c][1] + inv[k * 3 + 2] * b[c][2];
    const double grey[3] = { 1, 1, 1 };
    double g[3];
    predict(m, grey, g);
    return g[0] > 0 && g[1] > 0 && g[2] > 0 && m[0] > 0 && m[4] > 0 && m[8] > 0;
}

// Per-channel median ratios: a start no outlier can drag away.
Matrix medianGains(const std::vector<Sample> &samples)
{
    Matrix m {};
    for (int c = 0; c < 3; ++c) {
        std::vector<double> ratios;
        ratios.reserve(samples.size());
        for (const Sample &s : samples)
            ratios.push_back(s.target[c] / s.raw[c]);
        m[c * 4] = median(std::move(ratios));
    }
    return m;
}

// Rejects what lies far from the current fit (beyond three robust deviations)
// and fits again, from per-channel median gains on. Returns the inliers of
// the last round.
std::vector<const Sample *> robustFit(const std::vector<Sample> &samples, bool diagonal, Matrix &m,
                                      bool &ok)
{
    std::vector<const Sample *> in;
    m = medianGains(samples);
    ok = false;
    for (int round = 0; round < 4; ++round) {
        std::vector<double> errors;
        errors.reserve(samples.size());
        for (const Sample &s : samples)
            errors.push_back(errorStops(m, s));
        const double limit = std::clamp(3.0 * 1.4826 * median(errors), 0.04, 0.5);
        in.clear();
        for (size_t i = 0; i < samples.size(); ++i)
            if (errors[i] < limit)
                in.push_back(&samples[i]);
        if (in.size() < 9 || !solve(in, diagonal, m))
            return in;
        ok = true;
    }
    return in;
}

float toneAt(const std::vector<float> &tone, double y)
{
    if (tone.empty() || !(y > 0))
        return 0.0f;
    const double f = std::clamp((std::log2(y) - ColourFit::kToneFirst) / ColourFit::kToneStep, 0.0,
                                double(tone.size() - 1));
    const size_t i = std::min(size_t(f), tone.size() - 2);
    return float(tone[i] + (tone[i + 1] - tone[i]) * (f - i));
}

// A camera's tone curve, in log-log terms, keeps its slope between 0.4 and
// 2.5: a curve that would flatten a whole range of the RAW into one JPG value
// is not a rendering of that RAW. Limits each half-stop step from the
// best-populated bin outward.
void limitSlope(std::vector<float> &tone, int anchor)
{
    constexpr float down = -0.6f * ColourFit::kToneStep, up = 1.5f * ColourFit::kToneStep;
    for (size_t b = size_t(anchor) + 1; b < tone.size(); ++b)
        tone[b] = std::clamp(tone[b], tone[b - 1] + down, tone[b - 1] + up);
    for (int b = anchor - 1; b >= 0; --b)
        tone[b] = std::clamp(tone[b], tone[b + 1] - up, tone[b + 1] - down);
}

// The luminance-dependent difference left after the matrix: the JPG's tone
// curve. Median per half stop; empty bins take their neighbours' values.
std::vector<float> fitTone(const std::vector<const Sample *> &in, const Matrix &m)
{
    std::vector<std::vector<double>> bins(kToneBins);
    for (const Sample *s : in) {
        double p[3];
        predict(m, s->raw, p);
        const double yp = lum(p), ys = lum(s->sdr);
        if (yp <= 0)
            continue;
        const int b
            = int(std::lround((std::log2(yp) - ColourFit::kToneFirst) / ColourFit::kToneStep));
        if (b >= 0 && b < kToneBins)
            bins[b].push_back(std::log2(ys / yp));
    }
    std::vector<float> tone(kToneBins, NAN);
    int anchor = 0;
    for (int b = 0; b < kToneBins; ++b) {
        if (bins[b].size() >= 12)
            tone[b] = float(std::clamp(median(bins[b]), -2.0, 2.0));
        if (bins[b].size() > bins[anchor].size())
            anchor = b;
    }
    int first = -1, last = -1;
    for (int b = 0; b < kToneBins; ++b)
        if (!std::isnan(tone[b]))
            last = b, first = first < 0 ? b : first;
    if (first < 0)
        return {};
    for (int b = 0; b < kToneBins; ++b) {
        if (!std::isnan(tone[b]))
            continue;
        if (b < first || b > last) {
            tone[b] = tone[b < first ? first : last];
            continue;
        }
        int next = b + 1;
        while (std::isnan(tone[next]))
            ++next;
        tone[b] = tone[b - 1] + (tone[next] - tone[b - 1]) / float(next - b + 1);
    }
    limitSlope(tone, anchor);
    return tone;
}

// The colour the matrix should produce: the JPG's, with its tone curve taken out.
void untone(std::vector<Sample> &samples, const Matrix &m, const std::vector<float> &tone)
{
    for (Sample &s : samples) {
        double p[3];
        predict(m, s.raw, p);
        const double k = std::exp2(-toneAt(tone, lum(p)));
        for (int c = 0; c < 3; ++c)
            s.target[c] = s.sdr[c] * k;
    }
}

// Worst channel's error in stops of the whole fit (matrix and tone) against the JPG.
double fitError(const ColourFit &fit, const Sample &s)
{
    double p[3];
    predict(fit.matrix, s.raw, p);
    const double k = std::exp2(toneAt(fit.tone, lum(p)));
    double worst = 0.0;
    for (int c = 0; c < 3; ++c)
        worst = std::max(worst, std::abs(std::log2(std::max(p[c] * k, 1e-7) / s.sdr[c])));
    return worst;
}

double residual(const std::vector<const Sample *> &in, const ColourFit &fit)
{
    double sum = 0.0;
    for (const Sample *s : in) {
        double p[3];
        predict(fit.matrix, s->raw, p);
        const double k = std::exp2(toneAt(fit.tone, lum(p)));
        for (int c = 0; c < 3; ++c) {
            const double e = std::log2(std::max(p[c] * k, 1e-7) / s->sdr[c]);
            sum += e * e;
        }
    }
    return in.empty() ? 0.0 : std::sqrt(sum / (3.0 * in.size()));
}

// Too few well-exposed pixels for colour: match the exposure alone, over
// whatever both pictures hold.
ColourFit exposureOnly(const float *sdr, const float *raw, const float *brightness, size_t n,
                       double baselineStops)
{
    ColourFit fit;
    fit.exposureStops = baselineStops;
    std::vector<Sample> samples = wellExposed(sdr, raw, brightness, n, 0.002, 0.98f, 0.98f);
    std::vector<double> ratios;
    for (const Sample &s : samples)
        ratios.push_back(std::log2(lum(s.sdr) / lum(s.raw)));
    fit.samples = samples.size();
    if (ratios.size() >= 16)
        fit.exposureStops = median(ratios);
    const double k = std::exp2(fit.exposureStops);
    fit.matrix = { k, 0, 0, 0, k, 0, 0, 0, k };
    std::vector<const Sample *> all;
    for (const Sample &s : samples)
        all.push_back(&s);
    fit.residualStops = residual(all, fit);
    return fit;
}

} // namespace

ColourFit fitColour(const float *sdr, const float *raw, const float *brightness, size_t n,
                    double baselineStops)
{
    std::vector<Sample> samples = wellExposed(sdr, raw, brightness, n, 0.01, 0.9f, 0.9f);
    if (samples.size() < kMinSamples)
        return exposureOnly(sdr, raw, brightness, n, baselineStops);
    ColourFit fit;
    fit.samples = samples.size();
    std::vector<const Sample *> in;
    for (int pass = 0; pass < 2; ++pass) {
        bool ok = false;
        fit.kind = ColourFit::Kind::Matrix;
        in = robustFit(samples, false, fit.matrix, ok);
        if (!ok) {
            fit.kind = ColourFit::Kind::PerChannel;
            in = robustFit(samples, true, fit.matrix, ok);
        }
        if (!ok)
            return exposureOnly(sdr, raw, brightness, n, baselineStops);
        fit.tone = fitTone(in, fit.matrix);
        untone(samples, fit.matrix, fit.tone);
    }
    const double grey[3] = { 1, 1, 1 };
    double g[3];
    predict(fit.matrix, grey, g);
    fit.exposureStops = std::log2(std::max(1e-9, lum(g)));
    // Judged on a fixed bound, not the fit's own outlier limit, which follows the data.
    size_t close = 0;
    for (const Sample &sample : samples)
        close += fitError(fit, sample) < kInlierStops;
    fit.inlierShare = double(close) / double(samples.size());
    fit.residualStops = residual(in, fit);
    fit.matched = fit.inlierShare >= kUnmatchedShare && fit.residualStops <= kUnmatchedResidual;
    if (!fit.matched)
        fit.issue = QStringLiteral("the JPG's colours do not follow the RAW's (%1% of the pixels "
                                   "fit, residual %2 stops)")
                        .arg(int(fit.inlierShare * 100))
                        .arg(fit.residualStops, 0, 'f', 2);
    return fit;
}

void applyColour(const ColourFit &fit, float *raw, size_t n)
{
    for (size_t i = 0; i < n; ++i) {
        float *r = raw + i * 3;
        const double in[3] = { r[0], r[1], r[2] };
        double p[3];
        predict(fit.matrix, in, p);
        const double y = std::max(0.0, lum(p));
        const double k = std::exp2(toneAt(fit.tone, y));
        const double clipped = smoothstep(0.9, 1.0, std::max({ in[0], in[1], in[2] }));
        for (int c = 0; c < 3; ++c)
            r[c] = float(std::max(0.0, (p[c] + (y - p[c]) * clipped) * k));
    }
}

} // namespace orvanta::engine

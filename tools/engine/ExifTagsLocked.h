// Exif reading for the workers: exiv2 0.27 corrupts its heap when two threads
// parse files at once, so every read in the engine goes through one lock.
// Each read takes a few milliseconds; the lock costs the workers nothing
// measurable. Any thread.
#pragma once

#include "media/ExivAdapter.h"

#include <mutex>

namespace orvanta::engine {

inline std::optional<exiv::ExifTags> readTagsLocked(const QString &path)
{
    static std::mutex mutex;
    std::lock_guard lock(mutex);
    return exiv::readTags(path);
}

} // namespace orvanta::engine

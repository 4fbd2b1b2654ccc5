// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// The start-up of a host without the default theme. Call it once, after creating the application
/// object and before the first widget. resources is the folder with images.json, images, style and
/// strings; generated pictures are written to cache. Returns false if the strings can be read
/// neither in languageCode nor in English.
bool startUp(const QString &resources, const QString &cache, const QString &languageCode);

// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// What a host without the default theme does once, after the application object and before its
/// first widget. resources is the folder with images.json, images, style and strings; cache, which
/// must be writable, takes the generated pictures. False where the strings can't be read, in
/// languageCode or else in English.
bool startUp(const QString &resources, const QString &cache, const QString &languageCode);

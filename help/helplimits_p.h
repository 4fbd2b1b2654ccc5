// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QtGlobal>

// What a server, which can't be trusted, may make the help windows take.

/// Bytes of a page, after decompression; a larger one counts as failed.
constexpr qint64 kMaxPageBytes = qint64(32) * 1024 * 1024;
/// Bytes of a picture, after decompression; a larger one stays missing.
constexpr qint64 kMaxWebPictureBytes = qint64(64) * 1024 * 1024;
/// Pixels of a picture on a page from the network; a larger one stays missing.
constexpr qint64 kMaxPicturePixels = qint64(64) * 1024 * 1024;
/// Pixels of all pictures of a page from the network that are shown; the others stay missing.
constexpr qint64 kMaxPagePixels = qint64(128) * 1024 * 1024;
/// Pixels that all pictures of a page from the network are high on it, each the same part.
constexpr int kMaxPicturesHeight = 2000000;
/// Bytes of all pictures that a window is fetching; the one that exceeds them stays missing.
constexpr qint64 kMaxBufferedBytes = qint64(256) * 1024 * 1024;
/// Pictures of one page that are fetched at once: each takes a thread of the network's.
constexpr int kMaxDownloadsAtOnce = 64;
/// Milliseconds without a byte after which a download no longer counts among those.
constexpr int kMaxSilence = 30000;
/// Such silent downloads that one page keeps waiting for; the one that fell silent first is broken
/// off if there are more, as each holds a thread and a connection.
constexpr int kMaxSilentDownloads = 192;
/// Tables inside each other; a page with more counts as failed. The text engine takes twice as long
/// for each: seconds for twenty, hours for thirty.
constexpr int kMaxNestedTables = 12;
/// Tags of any kind inside each other; a page with more counts as failed.
constexpr int kMaxNestedTags = 1000;
/// Columns and rows of one cell of a table; more are cut to this.
constexpr int kMaxSpan = 100;
/// Letters of a title; the rest is cut off.
constexpr int kMaxTitleLength = 200;

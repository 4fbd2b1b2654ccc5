// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QtGlobal>

// Limits on what an untrusted server may send.

/// Bytes of a page, after decompression; a larger one counts as failed.
constexpr qint64 kMaxPageBytes = qint64(32) * 1024 * 1024;
/// Bytes of a picture, after decompression; a larger one is not shown.
constexpr qint64 kMaxWebPictureBytes = qint64(64) * 1024 * 1024;
/// Pixels of a picture on a page from the network; a larger one is not shown.
constexpr qint64 kMaxPicturePixels = qint64(64) * 1024 * 1024;
/// Pixels of all pictures on a page from the network; those that exceed the limit are not shown.
constexpr qint64 kMaxPagePixels = qint64(128) * 1024 * 1024;
/// Total height in pixels of all pictures on a page from the network, distributed evenly.
constexpr int kMaxPicturesHeight = 2000000;
/// Bytes of all pictures that a window is fetching; the one that exceeds the limit is not shown.
constexpr qint64 kMaxBufferedBytes = qint64(256) * 1024 * 1024;
/// Pictures of one page that are fetched at once: each requires a network thread.
constexpr int kMaxDownloadsAtOnce = 64;
/// Milliseconds without data after which a download no longer counts towards that limit.
constexpr int kMaxSilence = 30000;
/// Such silent downloads per page. If there are more, the one that has been silent longest is
/// aborted, because each holds a thread and a connection.
constexpr int kMaxSilentDownloads = 192;
/// Nested tables; a page with more counts as failed. The text engine needs twice as long for each
/// further level: seconds for twenty, hours for thirty.
constexpr int kMaxNestedTables = 12;
/// Nested tags of any kind; a page with more counts as failed.
constexpr int kMaxNestedTags = 1000;
/// Columns and rows that a cell of a table spans; larger spans are limited to this.
constexpr int kMaxSpan = 100;
/// Letters of a title; longer ones are truncated.
constexpr int kMaxTitleLength = 200;
/// Pages that a window keeps to go back and forward, and their letters together. The page that is
/// shown is always kept.
constexpr int kMaxHistoryPages = 50;
constexpr qint64 kMaxHistoryLetters = qint64(16) * 1024 * 1024;
/// Level of an entry of the contents: the tree is deleted recursively.
constexpr int kMaxContentsLevel = 9;

// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

// How a Chinese character is read, in pinyin without tones, ü written as v: "chang" and "zhang" for
// 长. Both are empty where there is no reading, the second one also where there is no other.
struct PinyinReadings {
  char first[7] = "";
  char second[7] = "";
};

// As ICU's transliterator tells: its usual reading of a single character, and the one that it gives
// to it at the beginning of a name. A character is looked up when it is first asked for and takes
// microseconds then; what is asked for again is in a table, 4 kB for each 256 characters of the
// alphabet of which one was met. Characters beyond the basic plane have no reading. Used by one
// thread.
const PinyinReadings& PinyinOf(char16_t character);

// Makes the transliterator, which takes a tenth of a second and 3 MB, unless it is there; the first
// reading would do so.
void PreparePinyin();

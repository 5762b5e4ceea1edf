// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "frm_main.h"

#include "mouse.h"
#include "picture_box.h"

namespace {

enum class Look { kRaised, kSunken, kReleased };

bool InHotArea(float width, float x, float y) {
  return width - 200 < x && x < width - 140 && 125 < y && y < 185;
}

// The frame around the close glyph of a pane that is `width` wide.
void DrawGlyphFrame(PictureBox& pic, float width, Look look) {
  const OleColor topLeft = look == Look::kRaised ? kWindowBackground : kWindowFrame;
  const OleColor bottomRight = look == Look::kRaised ? kWindowFrame : kWindowBackground;
  const float bottomEnd = look == Look::kReleased ? width - 110 : width - 100;
  pic.Line(width - 250, 85, width - 100, 85, topLeft);
  pic.Line(width - 250, 215, bottomEnd, 215, bottomRight);
  pic.Line(width - 250, 85, width - 250, 215, topLeft);
  pic.Line(width - 100, 85, width - 100, 230, bottomRight);
}

}  // namespace

void frmMain::DrawSortBar(PictureBox& ThePic) {
  const float width = layout_.picTreeContain.width;
  const float height = layout_.picTreeContain.height;
  ThePic.Cls();
  ThePic.Line(0, 10, width, 10, kApplicationWorkspace);
  ThePic.Line(0, 30, width, 30, kCaptionText);
  ThePic.Line(0, height - 30, width, height - 30, kCaptionText);
  ThePic.Line(30, 110, width - 300, 110, kCaptionText);
  ThePic.Line(30, 140, width - 300, 140, kApplicationWorkspace);
  ThePic.Line(30, 170, width - 300, 170, kCaptionText);
  ThePic.Line(30, 200, width - 300, 200, kApplicationWorkspace);
  ThePic.SetDrawWidth(1);
  ThePic.Line(width - 220, 125, width - 140, 195, kBlack);
  ThePic.Line(width - 220, 185, width - 140, 105, kBlack);
}

void frmMain::picTreeContain_MouseMove(int Button, float X, float Y) {
  if (Button != kNoButton) return;
  DrawSortBar(*picTreeContain);
  const float width = layout_.picTreeContain.width;
  if (InHotArea(width, X, Y)) DrawGlyphFrame(*picTreeContain, width, Look::kRaised);
}

void frmMain::picTreeContain_MouseDown(int Button, float X, float Y) {
  const float width = layout_.picTreeContain.width;
  if (Button != kLeftButton || !InHotArea(width, X, Y)) return;
  DrawSortBar(*picTreeContain);
  DrawGlyphFrame(*picTreeContain, width, Look::kSunken);
}

void frmMain::picTreeContain_MouseUp(int Button, float X, float Y) {
  if (Button != kLeftButton) return;
  DrawSortBar(*picTreeContain);
  const float width = layout_.picTreeContain.width;
  if (InHotArea(width, X, Y)) DrawGlyphFrame(*picTreeContain, width, Look::kReleased);
}

void frmMain::DrawGrip() {
  const float width = layout_.picShowSplitter.width;
  const float height = layout_.picShowSplitter.height;
  picShowSplitter->Cls();
  picShowSplitter->SetDrawWidth(2);
  picShowSplitter->Line(0, 30, 0, height - 30, kApplicationWorkspace);
  picShowSplitter->SetDrawWidth(1);
  picShowSplitter->Line(10, 30, 10, height - 30, kCaptionText);
  picShowSplitter->Line(0, 0, width, 0, kCaptionText);
  picShowSplitter->Line(0, height - 30, width, height - 30, kInactiveBorder);
}

void frmMain::DrawSplitterBar(PictureBox& ThePic) {
  const float width = 72;
  ThePic.Cls();
  const float height = layout_.picShowSplitter.height;
  ThePic.Line(0, 0, width, 0, kCaptionText);
  ThePic.Line(0, 0, 0, height, kApplicationWorkspace);
  ThePic.Line(30, 0, 30, height, kCaptionText);
}

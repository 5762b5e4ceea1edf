// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>
#include <QWidget>

// A strip of bands on one row, each holding a control or a caption. Fixed bands keep their width
// at the right end of the row, the resizable band takes the rest and begins with a grip. The strip
// has a height of its own, which follows its bands; sizes are in twips.
class BandContainer : public QWidget {
  Q_OBJECT

 public:
  // `above` and `below` the row stay empty.
  BandContainer(float above, float below, QWidget* parent = nullptr);

  // The container becomes the parent of `child`.
  void AddResizableBand(QWidget* child, float minHeight);
  void AddFixedBand(QWidget* child, float minHeight, float width);
  void AddCaptionBand(const QString& caption, float minHeight, float width);
  // `band` counts from 1.
  void SetBandWidth(int band, float width);

  // The height that the bands ask for.
  float Height() const { return height_; }

 Q_SIGNALS:
  void HeightChanged(float newHeight);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Band {
    QWidget* child = nullptr;
    float minHeight = 0;
    float width = 0;
    bool fixedSize = false;
    QRect rect;
  };

  void AddBand(const Band& band);
  void Rearrange();
  void PlaceBands();

  QList<Band> bands_;
  float above_;
  float below_;
  float height_ = 0;
};

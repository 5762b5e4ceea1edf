// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "shrink.h"

#include <algorithm>

QList<int> Shrunk(QList<int> acts, const std::function<bool(const QList<int>&)>& fails) {
  for (qsizetype run = std::max<qsizetype>(acts.size() / 2, 1);;) {
    bool shorter = false;
    for (qsizetype at = 0; at < acts.size();) {
      QList<int> rest = acts;
      rest.remove(at, std::min(run, acts.size() - at));
      if (fails(rest)) {
        acts = rest;
        shorter = true;
      } else {
        at += run;
      }
    }
    if (run == 1 && !shorter) return acts;
    if (!shorter || run > acts.size()) run = std::max<qsizetype>(run / 2, 1);
  }
}

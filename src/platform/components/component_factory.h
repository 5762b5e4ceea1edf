// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include "guid_gen.h"

#include <QtPlugin>

#include <memory>

// The root object of a component library: hands out a new instance at every call.
class ComponentFactory {
 public:
  virtual ~ComponentFactory() = default;

  virtual std::unique_ptr<GUIDGen> Create() const = 0;
};

Q_DECLARE_INTERFACE(ComponentFactory, "HCWordLib.ComponentFactory/1.0")

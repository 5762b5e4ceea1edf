// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <exception>
#include <utility>

// A failure of the platform: of a database, a component, a control or a container. It carries a
// description for the user and travels up to the event that started the work.
class Error : public std::exception {
 public:
  explicit Error(QString description)
      : description_(std::move(description)), utf8_(description_.toUtf8()) {}

  const QString& Description() const noexcept { return description_; }

  // The description in UTF-8.
  const char* what() const noexcept override { return utf8_.constData(); }

 private:
  QString description_;
  QByteArray utf8_;
};

// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <array>
#include <memory>

class Connection;
class GUIDGen;
class Recordset;

// Draws the identifiers of new categories: stores a fresh GUID in the register table and takes the
// number that the database gave to that row.
class GetGUID {
 public:
  GetGUID();
  ~GetGUID();
  GetGUID(const GetGUID&) = delete;
  GetGUID& operator=(const GetGUID&) = delete;

  // False when any step failed: TheErr then has the description and TheNewID is untouched. TheErr
  // is untouched on success. The generator is created by the first call and kept.
  bool NewID(Connection& TheDB, const QString& TableName, qint32& TheNewID,
             QString* TheErr = nullptr);

  // The same, for many: `rows` are the register's, which the first call reads, when they are null.
  bool NewID(Connection& TheDB, const QString& TableName, std::unique_ptr<Recordset>& rows,
             qint32& TheNewID, QString* TheErr);

 private:
  std::unique_ptr<GUIDGen> generator_;
  std::array<qint32, 4> quarters_{};
};

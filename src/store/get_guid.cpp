// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#include "get_guid.h"

#include "component.h"
#include "recordset.h"
#include "statements.h"

#include <exception>

GetGUID::GetGUID() = default;
GetGUID::~GetGUID() = default;

bool GetGUID::NewID(Connection& TheDB, const QString& TableName, qint32& TheNewID,
                    QString* TheErr) {
  std::unique_ptr<Recordset> rows;
  return NewID(TheDB, TableName, rows, TheNewID, TheErr);
}

bool GetGUID::NewID(Connection& TheDB, const QString& TableName, std::unique_ptr<Recordset>& rows,
                    qint32& TheNewID, QString* TheErr) {
  try {
    if (!generator_) {
      generator_ = CreateComponent(QLatin1String(kGUIDGenProgId));
    }
    generator_->Generate();
    quarters_ = {generator_->Part1(), generator_->Part2(), generator_->Part3(),
                 generator_->Part4()};

    if (rows == nullptr) {
      rows = std::make_unique<Recordset>();
      rows->SetCursorType(CursorType::kDynamic);
      rows->SetLockType(LockType::kOptimistic);
      rows->Open(Statement::SelectRegister(TableName), TheDB);
    }
    rows->AddNew();
    rows->SetField("GUIDField1", quarters_[0]);
    rows->SetField("GUIDField2", quarters_[1]);
    rows->SetField("GUIDField3", quarters_[2]);
    rows->SetField("GUIDField4", quarters_[3]);
    rows->Update();
    rows->MoveLast();
    TheNewID = rows->FieldInteger("ID");
    return true;
  } catch (const std::exception& error) {
    if (TheErr) {
      *TheErr = QString::fromUtf8(error.what());
    }
    return false;
  }
}

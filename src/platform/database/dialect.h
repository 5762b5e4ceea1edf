// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <span>

// What differs from engine to engine.
struct Dialect {
  // Sent right after connecting: a text between single quotes is literal but for doubled single
  // quotes, nothing waits for another user for more than 10 seconds, and a transaction's isolation
  // is what `beginToRead` promises.
  std::span<const char* const> sessionStatements;
  // Begins a transaction that shows one state of the database throughout.
  const char* beginToRead;
  // Begins a transaction that no other writer can make fail later on.
  const char* beginToWrite;
  // Asks for the number that the database gave to the row stored last on the same connection.
  // Null where none is known.
  const char* identityStatement;
  // Stands before the values of an insert, so that numbers may be among them that the database
  // would give itself.
  const char* beforeGivenNumbers = "";
};

// The dialect of the engine that its driver calls `dbmsName`.
const Dialect& DialectOf(const QString& dbmsName);

// `text` as it stands in a statement.
QString Quoted(QString text);

// `statement` as every engine takes it: "delete * from T" becomes "delete from T".
QString WithoutDeleteStar(const QString& statement);

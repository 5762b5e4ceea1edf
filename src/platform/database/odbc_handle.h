// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <sql.h>
#include <sqlext.h>
#include <utility>

// The owner of one ODBC handle.
class OdbcHandle {
 public:
  OdbcHandle() = default;
  // Allocates a handle of `type` (SQL_HANDLE_ENV, ...) under `parent`, which an environment has
  // none of.
  explicit OdbcHandle(SQLSMALLINT type, const OdbcHandle* parent = nullptr);
  ~OdbcHandle();
  OdbcHandle(OdbcHandle&& other) noexcept
      : type_(other.type_), handle_(std::exchange(other.handle_, nullptr)) {}
  OdbcHandle& operator=(OdbcHandle&& other) noexcept {
    std::swap(type_, other.type_);
    std::swap(handle_, other.handle_);
    return *this;
  }

  SQLHANDLE Get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }

  // Every ODBC call on this handle passes its result through here. Raises DatabaseError with what
  // the driver has to say about a failure. "No data" is no failure.
  SQLRETURN Check(SQLRETURN result) const {
    if (result != SQL_SUCCESS && result != SQL_SUCCESS_WITH_INFO && result != SQL_NO_DATA) Fail();
    return result;
  }
  [[noreturn]] void Fail() const;

 private:
  SQLSMALLINT type_ = 0;
  SQLHANDLE handle_ = nullptr;
};

// Numbers travel to ODBC as pointers.
inline SQLPOINTER AsOdbcPointer(SQLULEN value) {
  return reinterpret_cast<SQLPOINTER>(value);
}

// SPDX-FileCopyrightText: 2026 The HCWordLib authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

#include <utility>

// The keys of a data source and their values, for instance "Driver" and "SQLite3".
using DataSourceEntries = QList<std::pair<QString, QString>>;

// What the user's or else the machine's data source `name` says about `key`; empty when it says
// nothing or does not exist.
QString DataSourceValue(const QString& name, const QString& key);

// Whether the user or the machine has a data source `name`.
bool DataSourceExists(const QString& name);

// Makes the user's data source `name`. Raises DatabaseError, having made nothing, when the file of
// data sources cannot be written, or cannot hold a value as it is.
void WriteDataSource(const QString& name, const DataSourceEntries& entries);

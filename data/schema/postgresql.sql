-- SPDX-FileCopyrightText: 2026 The HCWordLib authors
-- SPDX-License-Identifier: MIT

-- The tables of a library in PostgreSQL (10 or later), in a database with the encoding UTF8.
-- Equal texts are equal byte by byte under every deterministic collation. The indexes of names are
-- hash indexes because they hold names of any length.

create table Dictionary (
  GID integer not null primary key,
  SortName varchar(4000) not null,
  Position integer not null
);

create index DictionaryByName on Dictionary using hash (SortName);

create table Items (
  SortID integer not null,
  ID integer not null,
  FatherID integer not null,
  NodeName varchar(4000) not null,
  primary key (SortID, ID)
);

create index ItemsByName on Items using hash (NodeName);

create table GUIDLists (
  GUIDField1 integer not null,
  GUIDField2 integer not null,
  GUIDField3 integer not null,
  GUIDField4 integer not null,
  ID integer generated always as identity primary key
);

-- SPDX-FileCopyrightText: 2026 The HCWordLib authors
-- SPDX-License-Identifier: MIT

-- The tables of a library in MariaDB (10.2.4 or later). utf8mb4_nopad_bin is the collation under
-- which only equal texts are equal: case, width, accents and blanks at the end count. An index of
-- names takes their first 255 characters.

create table Dictionary (
  GID int not null primary key,
  SortName varchar(4000) not null,
  Position int not null,
  key DictionaryByName (SortName(255))
) engine=InnoDB default character set utf8mb4 collate utf8mb4_nopad_bin;

create table Items (
  SortID int not null,
  ID int not null,
  FatherID int not null,
  NodeName varchar(4000) not null,
  primary key (SortID, ID),
  key ItemsByName (SortID, NodeName(255))
) engine=InnoDB default character set utf8mb4 collate utf8mb4_nopad_bin;

create table GUIDLists (
  GUIDField1 int not null,
  GUIDField2 int not null,
  GUIDField3 int not null,
  GUIDField4 int not null,
  ID int not null auto_increment primary key
) engine=InnoDB;

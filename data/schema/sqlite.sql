-- SPDX-FileCopyrightText: 2026 The HCWordLib authors
-- SPDX-License-Identifier: MIT

-- The tables of a library in SQLite (3.37 or later). A name is compared byte by byte.

create table Dictionary (
  GID integer not null primary key,
  SortName text not null check (length(SortName) <= 4000),
  Position integer not null
) strict;

create index DictionaryByName on Dictionary (SortName);

-- The rows stand in the order of the key, in which a category's words are read.
create table Items (
  SortID integer not null,
  ID integer not null,
  FatherID integer not null,
  NodeName text not null check (length(NodeName) <= 4000),
  primary key (SortID, ID)
) strict, without rowid;

-- Each entry also holds the row's key, so a name is searched for within its category.
create index ItemsByName on Items (NodeName);

-- autoincrement: no ID is given twice, not even after its row was deleted.
create table GUIDLists (
  GUIDField1 integer not null,
  GUIDField2 integer not null,
  GUIDField3 integer not null,
  GUIDField4 integer not null,
  ID integer primary key autoincrement
) strict;

-- A category takes its words with it.
create trigger DictionaryDeleted after delete on Dictionary begin
  delete from Items where SortID = old.GID;
end;

-- No word without its category and, where it has one, its parent word. Writers take turns.
create trigger ItemsInserted before insert on Items
when not exists (select 1 from Dictionary where GID = new.SortID)
  or new.FatherID <> 0
    and not exists (select 1 from Items where SortID = new.SortID and ID = new.FatherID)
begin
  select raise(abort, '分类条目或上级词刚刚被另一个用户删除，没有保存；按 F5 重新读入（或重新打开程序）后可以看到现在的词句库。');
end;

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

-- A category takes its words with it.
create or replace function DictionaryDeleted() returns trigger language plpgsql as $$
begin
  delete from Items where SortID = old.GID;
  return null;
end $$;

create trigger DictionaryDeleted after delete on Dictionary
for each row execute procedure DictionaryDeleted();

-- No word without its category and, where it has one, its parent word, which is never the word itself:
-- the number of a word that was just deleted may be given to the very word that was to stand below it.
-- Both are locked, so that whoever deletes one of them at the same moment is waited for and keeps
-- waiting. One by one, because a plan for many, made while the table was small, would go on reading all
-- of it.
create or replace function ItemsInserted() returns trigger language plpgsql as $$
declare
  parent record;
begin
  for parent in
    select SortID, FatherID, bool_or(ID = FatherID) as IsItself from Added
    group by SortID, FatherID order by SortID, FatherID
  loop
    perform 1 from Dictionary where GID = parent.SortID for key share;
    if found and parent.FatherID <> 0 then
      perform 1 from Items
        where SortID = parent.SortID and ID = parent.FatherID and not parent.IsItself for key share;
    end if;
    if not found then
      raise exception using errcode = 'foreign_key_violation',
        message = '分类条目或上级词刚刚被另一个用户删除，没有保存；按 F5 重新读入（或重新打开程序）后可以看到现在的词句库。';
    end if;
  end loop;
  return null;
end $$;

create trigger ItemsInserted after insert on Items referencing new table as Added
for each statement execute procedure ItemsInserted();

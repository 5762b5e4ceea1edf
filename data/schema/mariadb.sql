-- SPDX-FileCopyrightText: 2026 The HCWordLib authors
-- SPDX-License-Identifier: MIT

-- The tables of a library in MariaDB (10.2.4 or later). utf8mb4_nopad_bin is the collation under
-- which only equal texts are equal: case, width, accents and blanks at the end count. An index of
-- names takes their first 255 characters.

create table Dictionary (
  GID int not null primary key,
  SortName varchar(4000) not null,
  Position int not null
) engine=InnoDB default character set utf8mb4 collate utf8mb4_nopad_bin;

create index DictionaryByName on Dictionary (SortName(255));

create table Items (
  SortID int not null,
  ID int not null,
  FatherID int not null,
  NodeName varchar(4000) not null,
  primary key (SortID, ID)
) engine=InnoDB default character set utf8mb4 collate utf8mb4_nopad_bin;

create index ItemsByName on Items (SortID, NodeName(255));

create table GUIDLists (
  GUIDField1 int not null,
  GUIDField2 int not null,
  GUIDField3 int not null,
  GUIDField4 int not null,
  ID int not null auto_increment primary key
) engine=InnoDB;

-- A category takes its words with it.
create trigger DictionaryDeleted after delete on Dictionary for each row
delete from Items where SortID = old.GID;

-- No word without its category and, where it has one, its parent word. These are locked, so that
-- whoever deletes one of them at the same moment is waited for and keeps waiting.
create trigger ItemsInserted before insert on Items for each row
begin
  declare found int;
  select max(GID) into found from Dictionary where GID = new.SortID lock in share mode;
  if found is not null and new.FatherID <> 0 then
    select max(ID) into found from Items where SortID = new.SortID and ID = new.FatherID
      lock in share mode;
  end if;
  if found is null then
    signal sqlstate '23000' set
      message_text = '分类条目或上级词刚刚被另一个用户删除，没有保存；按 F5 重新读入（或重新打开程序）后可以看到现在的词句库。';
  end if;
end;

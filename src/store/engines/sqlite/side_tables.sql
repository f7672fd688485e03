-- What a database may have beside the tables of the system, for SQLite: schema.sql is run first.
-- A database without them works as well. "zvdb upgrade" runs those statements whose table, index
-- or row is missing, in this order.

create table zvMeta (
  fName  varchar(50) not null collate nocase primary key,
  fValue varchar(255) collate nocase
);

-- What a user put off (fState 1) until a moment, or dismissed (2). An item of a plan is known by
-- plan and date (fItem 0), because generating gives it another number; any other has no plan (0).
-- fGiven is when the user answered.
create table zvReminder (
  fID    integer primary key autoincrement,
  fUser  varchar(100) collate nocase,
  fPlan  integer default 0,
  fItem  integer default 0,
  fDate  datetime,
  fTitle varchar(255) collate nocase,
  fUntil datetime,
  fState smallint default 0,
  fGiven datetime
);
create unique index zvReminder_item on zvReminder(fUser, fPlan, fItem, fDate);

-- Who did what to which row: the value of a field before and after it.
create table zvHistory (
  fID    integer primary key autoincrement,
  fWhen  datetime,
  fWho   varchar(100) collate nocase,
  fAct   smallint default 0,
  fTable varchar(20) collate nocase,
  fRow   integer default 0,
  fField varchar(50) collate nocase,
  fOld   text collate nocase,
  fNew   text collate nocase
);
create index zvHistory_row on zvHistory(fTable, fRow, fID);
create index zvHistory_when on zvHistory(fWhen);

-- Finds what is due and not done without a look at what is done. It is partial because the engine
-- keeps no statistics: a statement that asks for the items of a plan in one state would otherwise be
-- answered by the state. One that asks for a state and a window can be answered by it all the same.
create index tTaskList_due on tTaskList(tDone, tDuring1)
  where tDone is not null and tDuring1 is not null;

insert into zvMeta(fName, fValue) values('version', '1');

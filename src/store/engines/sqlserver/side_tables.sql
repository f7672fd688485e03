-- What a database may have beside the tables of the system, for SQL Server: schema.sql is run first.
-- A database without them works as well. "zvdb upgrade" runs those statements whose table, index
-- or row is missing, in this order.

create table [zvMeta] (
  [fName]  nvarchar(50) not null primary key,
  [fValue] nvarchar(255)
);

-- What a user put off (fState 1) until a moment, or dismissed (2). An item of a plan is known by
-- plan and date (fItem 0), because generating gives it another number; any other has no plan (0).
-- fGiven is when the user answered.
create table [zvReminder] (
  [fID]    int identity(1,1) not null primary key,
  [fUser]  nvarchar(100),
  [fPlan]  int default 0,
  [fItem]  int default 0,
  [fDate]  datetime,
  [fTitle] nvarchar(255),
  [fUntil] datetime,
  [fState] smallint default 0,
  [fGiven] datetime
);
create unique index [zvReminder_item] on [zvReminder] ([fUser], [fPlan], [fItem], [fDate]);

-- Who did what to which row: the value of a field before and after it.
create table [zvHistory] (
  [fID]    int identity(1,1) not null primary key,
  [fWhen]  datetime,
  [fWho]   nvarchar(100),
  [fAct]   smallint default 0,
  [fTable] nvarchar(20),
  [fRow]   int default 0,
  [fField] nvarchar(50),
  [fOld]   nvarchar(max),
  [fNew]   nvarchar(max)
);
create index [zvHistory_row] on [zvHistory] ([fTable], [fRow], [fID]);
create index [zvHistory_when] on [zvHistory] ([fWhen]);

-- Finds what is due and not done without a look at what is done.
create index [tTaskList_due] on [tTaskList] ([tDone], [tDuring1]);

insert into [zvMeta] ([fName], [fValue]) values ('version', '1');

-- The tables of the system for SQL Server 2005 or later. The database's collation should compare
-- texts without regard to letter case (a collation whose name holds "_CI_"). Every table has a key,
-- without which a recordset that follows changes cannot be opened on it; "rowkey" stands in where
-- the rows have none of their own.

create table [tTaskSet] (
  [TaskID]      int not null primary key,
  [taskTitle]   nvarchar(100),
  [tbegin]      datetime,
  [tEnd]        datetime,
  [CircleType]  smallint,
  [CircleValue] smallint,
  [taskMonth]   smallint,
  [taskday]     smallint,
  [TaskWeek]    smallint,
  [Type]        smallint,
  [TypeValue]   smallint,
  [SetMan]      nvarchar(100),
  [DoneMan]     nvarchar(100),
  [Content]     nvarchar(max)
);
create index [tTaskSet_title] on [tTaskSet] ([taskTitle]);

create table [tTaskList] (
  [fID]       int identity(1,1) not null primary key,
  [TaskID]    int default 0,
  [taskTitle] nvarchar(255),
  [fContent]  nvarchar(max),
  [taskTime]  datetime,
  [tDuring1]  datetime,
  [tDuring2]  datetime,
  [tDone]     smallint default 0,
  [tDoneMan]  nvarchar(100),
  [fUser]     nvarchar(100),
  [fType]     smallint default 0,
  [fWay]      nvarchar(100),
  [fGuest]    nvarchar(100),
  [fOther0]   nvarchar(255),
  [fOther1]   nvarchar(255),
  [fOther2]   nvarchar(255),
  [fOther3]   nvarchar(255),
  [fOther4]   nvarchar(255),
  [fOther5]   nvarchar(255)
);
create index [tTaskList_plan] on [tTaskList] ([TaskID], [taskTime]);
-- Holds all that the list of items shows, so that reading it does not touch the table.
create index [tTaskList_window] on [tTaskList] ([tDuring2], [tDuring1])
  include ([TaskID], [taskTitle], [taskTime], [tDone], [fType]);

create table [cards] (
  [fID]       int identity(1,1) not null primary key,
  [CompCode]  nvarchar(50),
  [CompName]  nvarchar(255),
  [Name]      nvarchar(100),
  [province]  nvarchar(50),
  [cityname]  nvarchar(50),
  [CompAdd]   nvarchar(255),
  [telphone]  nvarchar(50),
  [homephone] nvarchar(50),
  [handphone] nvarchar(50),
  [fax]       nvarchar(50),
  [E_mail]    nvarchar(255),
  [HomeEmail] nvarchar(255),
  [http]      nvarchar(255),
  [HomeHttp]  nvarchar(255),
  [Birthday]  datetime,
  [BoxID]     int default 0
);
create index [cards_code] on [cards] ([CompCode]);
create index [cards_name] on [cards] ([CompName], [Name]);

create table [tRsBasic] (
  [fCode]  nvarchar(50),
  [fName]  nvarchar(100),
  [rowkey] int identity(1,1) not null primary key
);

create table [Employees] (
  [employcode] nvarchar(50),
  [employee]   nvarchar(100),
  [rowkey]     int identity(1,1) not null primary key
);

create table [rptListDetail] (
  [fTable]      nvarchar(50),
  [FieldName]   nvarchar(50),
  [FieldName_0] nvarchar(100),
  [FieldName_1] nvarchar(100),
  [FieldType]   smallint default 0,
  [fieldID]     int,
  [rowkey]      int identity(1,1) not null primary key
);

create table [tSysFunc] (
  [SerialNo]     smallint default 0,
  [model_Name]   nvarchar(50),
  [Model_Name_0] nvarchar(100),
  [Model_Name_1] nvarchar(100),
  [SecondPass]   nvarchar(50),
  [password]     nvarchar(50),
  [NoUse_]       smallint default 0,
  [rowkey]       int identity(1,1) not null primary key
);

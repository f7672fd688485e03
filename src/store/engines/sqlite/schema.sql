-- The tables of the system for SQLite 3.9 or later.
--
-- Dates are texts "YYYY-MM-DD HH:MM:SS". Texts compare without regard to letter case, as in the
-- other databases. The sizes of the text columns are the common contract of the three scripts;
-- SQLite itself does not enforce them.

pragma application_id = 0x7A764442; -- "zvDB"
pragma user_version = 1;

create table tTaskSet (
  TaskID      integer primary key,
  taskTitle   varchar(100) collate nocase,
  tbegin      datetime,
  tEnd        datetime,
  CircleType  smallint,
  CircleValue smallint,
  taskMonth   smallint,
  taskday     smallint,
  TaskWeek    smallint,
  "Type"      smallint,
  TypeValue   smallint,
  SetMan      varchar(100) collate nocase,
  DoneMan     varchar(100) collate nocase,
  Content     text collate nocase
);
create index tTaskSet_title on tTaskSet(taskTitle);

create table tTaskList (
  fID       integer primary key autoincrement,
  TaskID    integer default 0,
  taskTitle varchar(255) collate nocase,
  fContent  text collate nocase,
  taskTime  datetime,
  tDuring1  datetime,
  tDuring2  datetime,
  tDone     smallint default 0,
  tDoneMan  varchar(100) collate nocase,
  fUser     varchar(100) collate nocase,
  fType     smallint default 0,
  fWay      varchar(100) collate nocase,
  fGuest    varchar(100) collate nocase,
  fOther0   varchar(255) collate nocase,
  fOther1   varchar(255) collate nocase,
  fOther2   varchar(255) collate nocase,
  fOther3   varchar(255) collate nocase,
  fOther4   varchar(255) collate nocase,
  fOther5   varchar(255) collate nocase
);
create index tTaskList_plan on tTaskList(TaskID, taskTime);

-- Finds the items whose alert window meets a span of days, however wide or narrow the windows are.
-- The first column is the width class of the window: the days between its ends while below 16, then
-- one class for each power of two, 99 for ends that are not dates. Within a class a window that
-- reaches a day starts at most the class's width before it, so each class is one short range. Days
-- are counted as year * 800 + month * 40 + day, which grows with the text of the date. The other
-- columns are those that the list shows, so that reading it does not touch the table.
create index tTaskList_window on tTaskList(
  case
    when tDuring1 is null or tDuring2 is null then null
    when tDuring1 not glob '[0-9][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9]*'
      or tDuring2 not glob '[0-9][0-9][0-9][0-9]-[01][0-9]-[0-3][0-9]*'
      or typeof(tDuring2)='blob' then 99
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<16
      then max(0,(substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2)))
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<32 then 16
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<64 then 17
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<128 then 18
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<256 then 19
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<512 then 20
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<1024 then 21
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<2048 then 22
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<4096 then 23
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<8192 then 24
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<16384 then 25
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<32768 then 26
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<65536 then 27
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<131072 then 28
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<262144 then 29
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<524288 then 30
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<1048576 then 31
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<2097152 then 32
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<4194304 then 33
    when (substr(tDuring2,1,4)-substr(tDuring1,1,4))*800+(substr(tDuring2,6,2)-substr(tDuring1,6,2))*40+(substr(tDuring2,9,2)-substr(tDuring1,9,2))<8388608 then 34
  end,
  tDuring1, tDuring2, tDone, fType, taskTime, taskTitle, TaskID
);

create table cards (
  fID       integer primary key autoincrement,
  CompCode  varchar(50) collate nocase,
  CompName  varchar(255) collate nocase,
  "Name"    varchar(100) collate nocase,
  province  varchar(50) collate nocase,
  cityname  varchar(50) collate nocase,
  CompAdd   varchar(255) collate nocase,
  telphone  varchar(50) collate nocase,
  homephone varchar(50) collate nocase,
  handphone varchar(50) collate nocase,
  fax       varchar(50) collate nocase,
  E_mail    varchar(255) collate nocase,
  HomeEmail varchar(255) collate nocase,
  http      varchar(255) collate nocase,
  HomeHttp  varchar(255) collate nocase,
  Birthday  datetime,
  BoxID     integer default 0
);
create index cards_code on cards(CompCode);
create index cards_name on cards(CompName, "Name");

create table tRsBasic (
  fCode varchar(50) collate nocase,
  fName varchar(100) collate nocase
);

create table Employees (
  employcode varchar(50) collate nocase,
  employee   varchar(100) collate nocase
);

create table rptListDetail (
  fTable      varchar(50) collate nocase,
  FieldName   varchar(50) collate nocase,
  FieldName_0 varchar(100) collate nocase,
  FieldName_1 varchar(100) collate nocase,
  FieldType   smallint default 0,
  fieldID     integer
);

create table tSysFunc (
  SerialNo     smallint default 0,
  model_Name   varchar(50) collate nocase,
  Model_Name_0 varchar(100) collate nocase,
  Model_Name_1 varchar(100) collate nocase,
  SecondPass   varchar(50) collate nocase,
  "password"   varchar(50),
  NoUse_       smallint default 0
);

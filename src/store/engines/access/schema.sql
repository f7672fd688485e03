-- The tables of the system for Access (Jet 4.0 or ACE). Run the statements one by one over ADO
-- (OLE DB), which is the way that knows the DEFAULT clause.

CREATE TABLE [tTaskSet] (
  [TaskID]      LONG CONSTRAINT PK_tTaskSet PRIMARY KEY,
  [taskTitle]   TEXT(100),
  [tbegin]      DATETIME,
  [tEnd]        DATETIME,
  [CircleType]  SMALLINT,
  [CircleValue] SMALLINT,
  [taskMonth]   SMALLINT,
  [taskday]     SMALLINT,
  [TaskWeek]    SMALLINT,
  [Type]        SMALLINT,
  [TypeValue]   SMALLINT,
  [SetMan]      TEXT(100),
  [DoneMan]     TEXT(100),
  [Content]     MEMO
);
CREATE INDEX [tTaskSet_title] ON [tTaskSet] ([taskTitle]);

CREATE TABLE [tTaskList] (
  [fID]       COUNTER CONSTRAINT PK_tTaskList PRIMARY KEY,
  [TaskID]    LONG DEFAULT 0,
  [taskTitle] TEXT(255),
  [fContent]  MEMO,
  [taskTime]  DATETIME,
  [tDuring1]  DATETIME,
  [tDuring2]  DATETIME,
  [tDone]     SMALLINT DEFAULT 0,
  [tDoneMan]  TEXT(100),
  [fUser]     TEXT(100),
  [fType]     SMALLINT DEFAULT 0,
  [fWay]      TEXT(100),
  [fGuest]    TEXT(100),
  [fOther0]   TEXT(255),
  [fOther1]   TEXT(255),
  [fOther2]   TEXT(255),
  [fOther3]   TEXT(255),
  [fOther4]   TEXT(255),
  [fOther5]   TEXT(255)
);
CREATE INDEX [tTaskList_plan] ON [tTaskList] ([TaskID], [taskTime]);
CREATE INDEX [tTaskList_window] ON [tTaskList] ([tDuring2], [tDuring1]);

CREATE TABLE [cards] (
  [fID]       COUNTER CONSTRAINT PK_cards PRIMARY KEY,
  [CompCode]  TEXT(50),
  [CompName]  TEXT(255),
  [Name]      TEXT(100),
  [province]  TEXT(50),
  [cityname]  TEXT(50),
  [CompAdd]   TEXT(255),
  [telphone]  TEXT(50),
  [homephone] TEXT(50),
  [handphone] TEXT(50),
  [fax]       TEXT(50),
  [E_mail]    TEXT(255),
  [HomeEmail] TEXT(255),
  [http]      TEXT(255),
  [HomeHttp]  TEXT(255),
  [Birthday]  DATETIME,
  [BoxID]     LONG DEFAULT 0
);
CREATE INDEX [cards_code] ON [cards] ([CompCode]);
CREATE INDEX [cards_name] ON [cards] ([CompName], [Name]);

CREATE TABLE [tRsBasic] (
  [fCode] TEXT(50),
  [fName] TEXT(100)
);

CREATE TABLE [Employees] (
  [employcode] TEXT(50),
  [employee]   TEXT(100)
);

CREATE TABLE [rptListDetail] (
  [fTable]      TEXT(50),
  [FieldName]   TEXT(50),
  [FieldName_0] TEXT(100),
  [FieldName_1] TEXT(100),
  [FieldType]   SMALLINT DEFAULT 0,
  [fieldID]     LONG
);

CREATE TABLE [tSysFunc] (
  [SerialNo]     SMALLINT DEFAULT 0,
  [model_Name]   TEXT(50),
  [Model_Name_0] TEXT(100),
  [Model_Name_1] TEXT(100),
  [SecondPass]   TEXT(50),
  [password]     TEXT(50),
  [NoUse_]       SMALLINT DEFAULT 0
);

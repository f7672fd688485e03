-- What a database may have beside the tables of the system, for Access (Jet 4.0 or ACE): schema.sql
-- is run first. A database without them works as well. Run the statements one by one over ADO
-- (OLE DB), which is the way that knows the DEFAULT clause; one that has run already is left out.

CREATE TABLE [zvMeta] (
  [fName]  TEXT(50) CONSTRAINT PK_zvMeta PRIMARY KEY,
  [fValue] TEXT(255)
);

-- What a user put off (fState 1) until a moment, or dismissed (2). An item of a plan is known by
-- plan and date (fItem 0), because generating gives it another number; any other has no plan (0).
-- fGiven is when the user answered.
CREATE TABLE [zvReminder] (
  [fID]    COUNTER CONSTRAINT PK_zvReminder PRIMARY KEY,
  [fUser]  TEXT(100),
  [fPlan]  LONG DEFAULT 0,
  [fItem]  LONG DEFAULT 0,
  [fDate]  DATETIME,
  [fTitle] TEXT(255),
  [fUntil] DATETIME,
  [fState] SMALLINT DEFAULT 0,
  [fGiven] DATETIME
);
CREATE UNIQUE INDEX [zvReminder_item] ON [zvReminder] ([fUser], [fPlan], [fItem], [fDate]);

-- Who did what to which row: the value of a field before and after it.
CREATE TABLE [zvHistory] (
  [fID]    COUNTER CONSTRAINT PK_zvHistory PRIMARY KEY,
  [fWhen]  DATETIME,
  [fWho]   TEXT(100),
  [fAct]   SMALLINT DEFAULT 0,
  [fTable] TEXT(20),
  [fRow]   LONG DEFAULT 0,
  [fField] TEXT(50),
  [fOld]   MEMO,
  [fNew]   MEMO
);
CREATE INDEX [zvHistory_row] ON [zvHistory] ([fTable], [fRow], [fID]);
CREATE INDEX [zvHistory_when] ON [zvHistory] ([fWhen]);

-- Finds what is due and not done without a look at what is done.
CREATE INDEX [tTaskList_due] ON [tTaskList] ([tDone], [tDuring1]);

INSERT INTO [zvMeta] ([fName], [fValue]) VALUES ('version', '1');

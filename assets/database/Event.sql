-- Events, schedule and web log, empty. Tables, columns and their order are what every reader and
-- writer addresses: do not change them. Dates are kept as text: YYYY-MM-DD, HH:MM:SS, or both
-- with a blank between.

-- One row an event: its moment and its number, 1 to 12.
CREATE TABLE allevent (DateANDTime DATETIME, type INTEGER);

-- One row a schedule entry or a cancel mark. The number is assigned by the program; the
-- misspelling belongs to the column's name.
CREATE TABLE schedule (munber INTEGER, date DATETIME, time TEXT, event TEXT, rept TEXT, note TEXT);

-- One row a successful web login.
CREATE TABLE HTTPLOG (Time DATETIME, loginIP TEXT);

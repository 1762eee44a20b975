-- SPDX-License-Identifier: GPL-3.0-or-later
-- The tables of the day database. The hidden id keeps the rows in the order in which they came.

PRAGMA application_id = 1414223666; -- "TKW2" in ASCII: 0x544B5732
PRAGMA user_version = 1;

BEGIN;

-- The user's anniversaries. Year 0: every year; Month 0: every month; Day 0: by Week, 10 * week of the month + weekday
-- (1 Sunday .. 7 Saturday).
CREATE TABLE "Kinenbi"("id" INTEGER PRIMARY KEY,"Name" TEXT NOT NULL,"Year" INTEGER NOT NULL,"Month" INTEGER NOT NULL,"Day" INTEGER NOT NULL,"Week" INTEGER NOT NULL) STRICT;

-- National holidays, each a fixed month and day.
CREATE TABLE "Syukuzitu"("id" INTEGER PRIMARY KEY,"Name" TEXT NOT NULL,"Month" INTEGER NOT NULL,"Day" INTEGER NOT NULL) STRICT;

-- Dates the user marked as a day off, a half-day, an ordinary working day; ISO text.
CREATE TABLE "Holiday"("id" INTEGER PRIMARY KEY,"Date" TEXT NOT NULL) STRICT;
CREATE TABLE "Halfday"("id" INTEGER PRIMARY KEY,"Date" TEXT NOT NULL) STRICT;
CREATE TABLE "Usuallyday"("id" INTEGER PRIMARY KEY,"Date" TEXT NOT NULL) STRICT;

CREATE INDEX "KinenbiByDay" ON "Kinenbi"("Day","Month","Year");
CREATE INDEX "KinenbiByWeek" ON "Kinenbi"("Week","Month","Year");

COMMIT;

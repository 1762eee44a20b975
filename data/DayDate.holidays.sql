-- SPDX-License-Identifier: GPL-3.0-or-later
-- The rows of the day database as it is delivered.

BEGIN;

-- The national holidays of 2026 that fall on a fixed day, in date order.
INSERT INTO "Syukuzitu"("Name","Month","Day") VALUES
  ('元日', 1, 1),
  ('建国記念の日', 2, 11),
  ('天皇誕生日', 2, 23),
  ('昭和の日', 4, 29),
  ('憲法記念日', 5, 3),
  ('みどりの日', 5, 4),
  ('こどもの日', 5, 5),
  ('山の日', 8, 11),
  ('文化の日', 11, 3),
  ('勤労感謝の日', 11, 23);

COMMIT;

SELECT * FROM user; DELETE FROM topten
DELETE FROM user -- x
SELECT * FROM user WHERE name='' OR (SELECT 1 FROM system)
INSERT INTO player SELECT * FROM player
UPDATE topten SET score = 40000
SELECT [name], "Now", now() FROM topten

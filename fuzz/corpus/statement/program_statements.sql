SELECT nextuserid FROM system
SELECT * FROM topten ORDER BY score DESC
DELETE FROM topten
SELECT * FROM topten
SELECT * FROM topten ORDER BY score DESC, date
DELETE * FROM topten
SELECT * FROM user
SELECT * FROM user where userid = 1
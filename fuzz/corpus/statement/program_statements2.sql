SELECT * FROM user WHERE name='Ann'
SELECT * FROM user WHERE userid = 9999
DELETE * FROM user where userid = 2
DELETE FROM player
SELECT * from player
SELECT * from player ORDER BY funds DESC
INSERT INTO errorlog (action, message, errordate) VALUES ('Play','The device is not ready.', Now)
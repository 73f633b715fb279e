SELECT * FROM user WHERE name='O'Brien'
INSERT INTO errorlog (action, message, errordate) VALUES ('Pause','Can't', Now)

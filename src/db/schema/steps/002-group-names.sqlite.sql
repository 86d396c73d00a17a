-- No two groups are called alike: the database itself refuses the second of two consoles.
--
-- How names are compared is the program's (db/group_keys.h), the same on every engine: none of them knows
-- all letters as the others do. `name_key` is the digest of the name as it is compared; it is NULL for a
-- group whose name the program has not written, which is then kept apart from no other.
ALTER TABLE groups ADD COLUMN name_key VARCHAR(64);
CREATE UNIQUE INDEX groups_name_key ON groups (name_key);
UPDATE groups SET name_key = '10eb99d2d879b4e3f5c9342a7bcb040b90153d5c9ebfa125f47d4467c5947530'
    WHERE group_id = 80 AND name = 'Everybody';

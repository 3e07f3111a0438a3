-- One of the books is nobody's but its owner's and theirs to whom something is granted by name; :"x" is the name of the
-- database.
--
-- Nobody else makes objects, temporary ones neither, and nobody else calls the routines that have the owner's rights.

revoke all on database :"baze" from public;
revoke create on schema public from public;
revoke all on all tables in schema public from public;
revoke all on all sequences in schema public from public;
revoke all on all routines in schema public from public;

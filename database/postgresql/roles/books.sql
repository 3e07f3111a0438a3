-- Who may do what in one of the books, by the groups of the institution. Everything is granted anew, so that what a
-- revision added is covered; :"x" is the name of a group or database, :'x' a text.
--
-- Viewers read, bookkeepers are viewers who write, administrators of users are viewers who keep users and rights.
-- A person who does both belongs to two groups.

revoke all on database :"baze" from :"ziurovai", :"buhalteriai", :"administratoriai";
grant connect on database :"baze" to :"ziurovai";

grant usage on schema public to :"ziurovai";

revoke all on all tables in schema public from :"ziurovai", :"buhalteriai", :"administratoriai";
revoke all on all sequences in schema public from :"ziurovai", :"buhalteriai", :"administratoriai";
revoke all on all routines in schema public from :"ziurovai", :"buhalteriai", :"administratoriai";

grant select on all tables in schema public to :"ziurovai";
grant select on all sequences in schema public to :"ziurovai";
grant usage on all sequences in schema public to :"buhalteriai";
revoke usage on sequence bd_istorija_ist_id_seq from :"buhalteriai";

-- The history is written by the triggers alone. A seal is written by whoever closes the month; the right to update is
-- what locking asks for, a trigger refuses any update itself. Views are read only: one over the catalogue would write
-- there with its owner's rights.
do $$
declare
    l record;
begin
    for l in
        select oid::regclass as lentele,
               case relname when 'bd_antspaudai' then 'insert, update' else 'insert, update, delete' end as teises
        from pg_class
        where relkind = 'r' and relnamespace = 'public'::regnamespace
          and relname not in ('bd_versija', 'sys_nuorodos', 'bd_istorija')
    loop
        execute format('grant %s on %s to %I', l.teises, l.lentele, :'buhalteriai');
    end loop;
end $$;

-- Viewers call what only computes and reads, bookkeepers what moves balances. Other routines with the owner's rights,
-- and those that these call, are for triggers and routines alone.
do $$
declare
    r record;
begin
    for r in
        select oid::regprocedure as rutina,
               case when prokind = 'f' and provolatile <> 'v' then :'ziurovai' else :'buhalteriai' end as kam
        from pg_proc
        where pronamespace = 'public'::regnamespace and prorettype <> 'trigger'::regtype
          and (not prosecdef or proname in ('close_per', 'back_per', 'p_calcdbkrlik'))
          and proname not in ('sys_irasyti_istorija', 'sys_istorija_visoms', 'sys_rutina_prasideda',
                              'sys_rutina_baigiasi', 'sys_rutina_savininko')
          and proname not like 'sys\_prisijung%'
    loop
        execute format('grant execute on routine %s to %I', r.rutina, r.kam);
    end loop;
end $$;

-- The history of changes.

-- One record for each row that a person changed, made in the same transaction.
-- ist_raktas: the values of the row's key joined with '|'; of a row whose key changed the new one.
-- ist_veiksmas: I inserted, U updated, D deleted, R balances moved by a routine (key: the period).
-- ist_buvo, ist_yra: JSON objects of column and value, of an update only the changed columns. A picture is an
-- object of its size and checksum, a password the text "pakeista". Of a routine they are the number of rows and
-- the sums of the amounts.
-- ist_login: null for a change by a program that no person has logged in to.
-- ist_suma: the check sum of all columns but the number.
create table bd_istorija (
    ist_id       bigint generated always as identity primary key,
    ist_laikas   varchar(23) not null,
    ist_login    varchar(30),
    ist_stotis   varchar(64),
    ist_lentele  varchar(40) not null check (ist_lentele ~ '^[a-z0-9_]+$'),
    ist_raktas   varchar(200) not null,
    ist_veiksmas varchar(1) not null check (ist_veiksmas in ('I', 'U', 'D', 'R')),
    ist_buvo     text check (jsonb_typeof(ist_buvo::jsonb) = 'object'),
    ist_yra      text check (jsonb_typeof(ist_yra::jsonb) = 'object'),
    ist_pedsakas text check (jsonb_typeof(ist_pedsakas::jsonb) = 'object'),
    ist_suma     bigint not null
);

create index ix_bd_istorija_laikas on bd_istorija (ist_laikas, ist_id);
create index ix_bd_istorija_eilute on bd_istorija (ist_lentele, ist_raktas, ist_id);
-- The station stands in it so that the engine's own check holds a damaged one against the index.
create index ix_bd_istorija_login on bd_istorija (ist_login nulls first, ist_laikas, ist_id, ist_stotis);

-- Nobody is granted anything: roles other than the owner write through the triggers alone.
revoke all on bd_istorija from public;

create function tr_istorijos_apsauga() returns trigger
language plpgsql
as $$
begin
    raise exception 'Pakeitimų istorijos įrašai %.',
        case tg_op when 'UPDATE' then 'nekeičiami' else 'netrinami' end;
end $$;

create trigger tr_bd_istorija_keista before update or delete on bd_istorija
for each row execute function tr_istorijos_apsauga();

create trigger tr_bd_istorija_trinta before truncate on bd_istorija
for each statement execute function tr_istorijos_apsauga();

-- The check sum of a record: what changes in it past the program shows, even before a seal covers it.
create function sys_iraso_suma(laikas text, login text, stotis text, lentele text, raktas text, veiksmas text,
                               buvo text, yra text, pedsakas text) returns bigint
language sql immutable parallel safe
as $$
    select hashtextextended(quote_nullable(laikas) || quote_nullable(login) || quote_nullable(stotis)
                            || quote_nullable(lentele) || quote_nullable(raktas) || quote_nullable(veiksmas)
                            || quote_nullable(buvo) || quote_nullable(yra) || quote_nullable(pedsakas), 0)
$$;

-- Every record gets its sum, whoever writes it; one that is restored from a backup has it.
create function tr_istorijos_suma() returns trigger
language plpgsql
as $$
begin
    new.ist_suma := sys_iraso_suma(new.ist_laikas, new.ist_login, new.ist_stotis, new.ist_lentele, new.ist_raktas,
                                   new.ist_veiksmas, new.ist_buvo, new.ist_yra, new.ist_pedsakas);
    return new;
end $$;

create trigger tr_bd_istorija_suma before insert on bd_istorija
for each row when (new.ist_suma is null) execute function tr_istorijos_suma();

-- Every record asks the two functions below: in this language the server keeps their plans.
-- Whether somebody has the rights of the owner of the books. The schema is named: who may make temporary tables has
-- one of the same name.
create function sys_savininkas(kas name) returns boolean
language plpgsql stable
as $$
begin
    return pg_has_role(kas, (select relowner from pg_class where oid = 'public.bd_istorija'::regclass), 'usage');
end $$;

-- Who changes rows and when, as a record says it. Where all share the owner's login the program tells the person;
-- who logs in to the server by himself cannot be anybody else.
create function sys_kas_keicia(out laikas text, out login text, out stotis text)
language plpgsql volatile
as $$
begin
    laikas := to_char(clock_timestamp(), 'YYYY-MM-DD HH24:MI:SS.MS');
    login := nullif(current_setting('velmora.login', true), '');
    if not (sys_savininkas(session_user) or coalesce(lower(btrim(login)) = session_user, false)) then
        login := session_user;
    end if;
    stotis := nullif(current_setting('velmora.stotis', true), '');
end $$;

-- A row without what has no place in a record: of pictures stand size and checksum, of passwords that there is
-- one. slepiami: the columns of both.
create function sys_istorijos_eilute(eilute jsonb, slepiami text[]) returns jsonb
language plpgsql stable
as $$
declare
    stulpelis text;
    turinys bytea;
begin
    foreach stulpelis in array slepiami loop
        if stulpelis = 'usr_pasw' and eilute ? stulpelis then
            eilute := eilute || '{"usr_pasw": "pakeista"}';
        elsif eilute ->> stulpelis is not null then
            turinys := (eilute ->> stulpelis)::bytea;
            eilute := jsonb_set(eilute, array[stulpelis],
                                jsonb_build_object('baitai', length(turinys),
                                                   'sha256', encode(sha256(turinys), 'hex')));
        end if;
    end loop;
    return eilute;
end $$;

-- The values of a row's key joined with '|'; a key has four columns at most. Stable, as concat_ws is: so it becomes
-- a part of the statement that asks it.
create function sys_eilutes_raktas(eilute jsonb, raktai text[]) returns text
language sql stable parallel safe
as $$
    select concat_ws('|', eilute ->> raktai[1], eilute ->> raktai[2], eilute ->> raktai[3], eilute ->> raktai[4])
$$;

-- Eight bits of a password, so that a former one cannot be told from its fingerprint.
create function sys_slaptazodzio_pedsakas(slaptazodis text) returns bigint
language sql immutable parallel safe
as $$
    select coalesce(hashtextextended(slaptazodis, 0) & 255, 0)
$$;

-- What the history keeps of a password beside its record; null for a row without one.
create function sys_slaptazodziu_pedsakai(buvo jsonb, yra jsonb) returns jsonb
language sql stable
as $$
    select case when coalesce(buvo, yra) ? 'usr_pasw'
                then jsonb_build_object('usr_pasw', jsonb_build_array(
                         case when buvo is null then 0 else sys_slaptazodzio_pedsakas(buvo ->> 'usr_pasw') end,
                         case when yra is null then 0 else sys_slaptazodzio_pedsakas(yra ->> 'usr_pasw') end))
           end
$$;

-- The records of a statement's rows. Arguments of the trigger: the columns of the key and those that a record does
-- not show, each list with commas between. It has the rights of the table's owner, so that no other role needs
-- any on the history. Each row is made JSON once: hence materialized, and offset 0.
-- The engine keeps the rows before and the rows after of an update in the order in which it changed them: that is
-- how they find each other, as their keys may have changed.
create function tr_istorija() returns trigger
language plpgsql security definer
set search_path = pg_catalog, public, pg_temp
set jit = off
as $$
declare
    raktai constant text[] := string_to_array(tg_argv[0], ',');
    slepiami constant text[] := string_to_array(tg_argv[1], ',');
    kas constant record := sys_kas_keicia();
begin
    if tg_op <> 'UPDATE' then
        insert into bd_istorija (ist_laikas, ist_login, ist_stotis, ist_lentele, ist_raktas, ist_veiksmas, ist_buvo,
                                 ist_yra, ist_pedsakas)
        with jsonais as materialized (select to_jsonb(eilutes) as e from eilutes)
        select kas.laikas, kas.login, kas.stotis, tg_table_name, sys_eilutes_raktas(e, raktai), left(tg_op, 1),
               sys_istorijos_eilute(s, slepiami), sys_istorijos_eilute(n, slepiami), sys_slaptazodziu_pedsakai(s, n)
        from jsonais
        cross join lateral (select case tg_op when 'DELETE' then e end as s,
                                   case tg_op when 'INSERT' then e end as n) puses;
    else
        insert into bd_istorija (ist_laikas, ist_login, ist_stotis, ist_lentele, ist_raktas, ist_veiksmas, ist_buvo,
                                 ist_yra, ist_pedsakas)
        select kas.laikas, kas.login, kas.stotis, tg_table_name, r.raktas, 'U',
               sys_istorijos_eilute(d.buvo, slepiami), sys_istorijos_eilute(d.yra, slepiami),
               sys_slaptazodziu_pedsakai(s, n)
        from unnest((select array_agg(to_jsonb(buvo)) from buvo), (select array_agg(to_jsonb(yra)) from yra)) e (s, n)
        cross join lateral (select sys_eilutes_raktas(n, raktai) as raktas,
                                   sys_eilutes_raktas(s, raktai) as senas_raktas offset 0) r
        -- Where the key changed all columns are shown: the history of the old key ends with the record.
        cross join lateral (select jsonb_object_agg(key, value) as buvo, jsonb_object_agg(key, n -> key) as yra
                            from jsonb_each(s)
                            where value is distinct from n -> key or r.raktas <> r.senas_raktas) d
        where s <> n;
    end if;
    return null;
end $$;

-- A record in the name of the session's person.
create function sys_irasyti_istorija(lentele text, raktas text, veiksmas text, buvo jsonb, yra jsonb,
                                     pedsakas jsonb) returns void
language sql
as $$
    insert into bd_istorija (ist_laikas, ist_login, ist_stotis, ist_lentele, ist_raktas, ist_veiksmas, ist_buvo,
                             ist_yra, ist_pedsakas)
    select laikas, login, stotis, lentele, raktas, veiksmas, buvo, yra, pedsakas from sys_kas_keicia()
$$;

-- Puts every table with a key under history. While a routine is under way, or new books are filled, the setting
-- velmora.rutina says so, and no row leaves a record of its own: with the owner's rights alone, which the routines
-- have, as anybody may set it.
create procedure sys_istorija_visoms()
language plpgsql
as $$
declare
    l record;
begin
    for l in
        select relname,
               (select string_agg(attname, ',' order by array_position(indkey::smallint[], attnum))
                from pg_attribute where attrelid = c.oid and attnum = any (indkey)) as raktai,
               (select coalesce(string_agg(attname, ','), '')
                from pg_attribute
                where attrelid = c.oid and (atttypid = 'bytea'::regtype or attname = 'usr_pasw')) as slepiami
        from pg_class c join pg_index on indrelid = c.oid and indisprimary
        where relkind = 'r' and relnamespace = current_schema()::regnamespace and relname not like 'sys\_%'
          and relname not in ('bd_versija', 'bd_istorija', 'bd_antspaudai')
    loop
        execute (select string_agg(format('create or replace trigger tr_istorija_%s after %s on %I referencing %s '
                                          'for each statement '
                                          'when (coalesce(current_setting(''velmora.rutina'', true), '''') = '''' '
                                          'or not sys_savininkas(current_user)) '
                                          'execute function tr_istorija(%L, %L);',
                                          pavadinimas, veiksmas, l.relname, eilutes, l.raktai, l.slepiami), ' ')
                 from (values ('nauja', 'insert', 'new table as eilutes'),
                              ('keista', 'update', 'old table as buvo new table as yra'),
                              ('trinta', 'delete', 'old table as eilutes')) v (pavadinimas, veiksmas, eilutes));
    end loop;
end $$;

call sys_istorija_visoms();

-- The tables that people fill; those by which the database knows and guards itself are left out.
create or replace view systable as
select oid::bigint as table_id, relname::varchar(128) as table_name
from pg_class
where relkind = 'r' and relnamespace = current_schema()::regnamespace
  and relname not like 'sys\_%' and relname not in ('bd_versija', 'bd_istorija', 'bd_antspaudai');

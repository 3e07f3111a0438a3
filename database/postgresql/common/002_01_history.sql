-- The history of changes.

-- One record for each row that a person changed, made in the same transaction.
-- ist_raktas: the values of the row's key joined with '|'; of a row whose key changed the new one.
-- ist_veiksmas: I inserted, U updated, D deleted, R balances moved by a routine (key: the period).
-- ist_buvo, ist_yra: JSON objects of column and value, of an update only the changed columns. A picture is an
-- object of its size and checksum, a password the text "pakeista". Of a routine they are the number of rows and
-- the sums of the amounts.
-- ist_login: null for a change by a program that no person has logged in to.
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
    ist_pedsakas text check (jsonb_typeof(ist_pedsakas::jsonb) = 'object')
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

-- A record in the name of the session's person.
create function sys_irasyti_istorija(lentele text, raktas text, veiksmas text, buvo jsonb, yra jsonb,
                                     pedsakas jsonb default null) returns void
language sql
as $$
    insert into bd_istorija (ist_laikas, ist_login, ist_stotis, ist_lentele, ist_raktas, ist_veiksmas, ist_buvo,
                             ist_yra, ist_pedsakas)
    values (to_char(clock_timestamp(), 'YYYY-MM-DD HH24:MI:SS.MS'),
            nullif(current_setting('velmora.login', true), ''),
            nullif(current_setting('velmora.stotis', true), ''), lentele, raktas, veiksmas, buvo, yra, pedsakas)
$$;

-- A row without what has no place in a record: of pictures stand size and checksum, of passwords that there is
-- one.
create function sys_istorijos_eilute(eilute jsonb, paveikslai text[]) returns jsonb
language plpgsql stable
as $$
declare
    stulpelis text;
    turinys bytea;
begin
    if eilute ? 'usr_pasw' then
        eilute := eilute || '{"usr_pasw": "pakeista"}';
    end if;
    foreach stulpelis in array paveikslai loop
        if eilute ->> stulpelis is not null then
            turinys := (eilute ->> stulpelis)::bytea;
            eilute := jsonb_set(eilute, array[stulpelis],
                                jsonb_build_object('baitai', length(turinys),
                                                   'sha256', encode(sha256(turinys), 'hex')));
        end if;
    end loop;
    return eilute;
end $$;

-- The record of one row. Arguments of the trigger: the columns of the key and those of pictures, each list with
-- commas between. It has the rights of the table's owner, so that no other role needs any on the history.
create function tr_istorija() returns trigger
language plpgsql security definer
set search_path from current
as $$
declare
    paveikslai constant text[] := string_to_array(tg_argv[1], ',');
    eilute constant jsonb := case tg_op when 'DELETE' then to_jsonb(old) else to_jsonb(new) end;
    raktas text;
    senas_raktas text;
    buvo jsonb;
    yra jsonb;
    pedsakas jsonb;
begin
    select string_agg(eilute ->> stulpelis, '|' order by nr), string_agg(to_jsonb(old) ->> stulpelis, '|' order by nr)
    into raktas, senas_raktas
    from unnest(string_to_array(tg_argv[0], ',')) with ordinality as r (stulpelis, nr);
    if tg_op = 'UPDATE' then
        -- Where the key changed the record shows the whole row: the history of the old key ends with it.
        select jsonb_object_agg(key, b.value), jsonb_object_agg(key, n.value) into buvo, yra
        from jsonb_each(to_jsonb(old)) b join jsonb_each(eilute) n using (key)
        where b.value is distinct from n.value or raktas <> senas_raktas;
    elsif tg_op = 'INSERT' then
        yra := eilute;
    else
        buvo := eilute;
    end if;
    if eilute ? 'usr_pasw' then
        pedsakas := jsonb_build_object('usr_pasw', jsonb_build_array(
            case when tg_op = 'INSERT' then 0 else sys_slaptazodzio_pedsakas(to_jsonb(old) ->> 'usr_pasw') end,
            case when tg_op = 'DELETE' then 0 else sys_slaptazodzio_pedsakas(to_jsonb(new) ->> 'usr_pasw') end));
    end if;
    perform sys_irasyti_istorija(tg_table_name::text, raktas, left(tg_op, 1),
                                 sys_istorijos_eilute(buvo, paveikslai),
                                 sys_istorijos_eilute(yra, paveikslai), pedsakas);
    return null;
end $$;

-- The columns of a table that stand at these places, or are of this type, with commas between.
create function sys_stulpeliai(lentele oid, vietos smallint[], tipas regtype) returns text
language sql stable
as $$
    select coalesce(string_agg(attname, ',' order by array_position(vietos, attnum), attnum), '')
    from pg_attribute
    where attrelid = lentele and attnum > 0 and not attisdropped and (attnum = any (vietos) or atttypid = tipas)
$$;

-- Puts every table with a key under history. While a routine is under way, or new books are filled, the setting
-- velmora.rutina says so, and no row leaves a record of its own.
create procedure sys_istorija_visoms()
language plpgsql
as $$
declare
    l record;
    kada constant text := 'when (coalesce(current_setting(''velmora.rutina'', true), '''') = ''''%s) '
        'execute function tr_istorija(%L, %L)';
begin
    for l in
        select relname, sys_stulpeliai(c.oid, indkey::smallint[], null) as raktas,
               sys_stulpeliai(c.oid, null, 'bytea') as paveikslai
        from pg_class c join pg_index on indrelid = c.oid and indisprimary
        where relkind = 'r' and relnamespace = current_schema()::regnamespace and relname not like 'sys\_%'
          and relname not in ('bd_versija', 'bd_istorija', 'bd_antspaudai')
    loop
        execute format('create or replace trigger tr_istorija_eilutes after insert or delete on %I for each row '
                       || kada, l.relname, '', l.raktas, l.paveikslai);
        execute format('create or replace trigger tr_istorija_keista after update on %I for each row '
                       || kada, l.relname, ' and old.* is distinct from new.*', l.raktas, l.paveikslai);
    end loop;
end $$;

call sys_istorija_visoms();

-- The tables that people fill; those by which the database knows and guards itself are left out.
create or replace view systable as
select oid::bigint as table_id, relname::varchar(128) as table_name
from pg_class
where relkind = 'r' and relnamespace = current_schema()::regnamespace
  and relname not like 'sys\_%' and relname not in ('bd_versija', 'bd_istorija', 'bd_antspaudai');

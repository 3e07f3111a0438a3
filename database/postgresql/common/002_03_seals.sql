-- The seals: what the books held at the closes, each bound to the one before by a hash.

-- One row for each close, roll-back and beginning. ant_irasai: the numbers of the records of history that it
-- covers, ant_sumos: totals of the month, ant_bukle: the fingerprints of all tables, ant_antspaudas: SHA-256
-- over the seal before, all this and the records.
create table bd_antspaudai (
    ant_id         bigint primary key,
    ant_laikas     varchar(23) not null,
    ant_login      varchar(30),
    ant_stotis     varchar(64),
    ant_ivykis     varchar(20) not null,
    ant_perid      bigint,
    ant_irasai     text not null,
    ant_sumos      text not null,
    ant_bukle      text not null,
    ant_antspaudas varchar(64) not null
);

create function tr_antspaudai() returns trigger
language plpgsql
as $$
begin
    raise exception 'Antspaudai nekeičiami ir netrinami.';
end $$;

create trigger tr_bd_antspaudai before update or delete or truncate on bd_antspaudai
for each statement execute function tr_antspaudai();

-- Who logs in to the server by himself seals in his own name.
create function tr_antspaudo_pasirasymas() returns trigger
language plpgsql
as $$
begin
    if not sys_savininkas(session_user) and new.ant_login is distinct from (sys_kas_keicia()).login then
        raise exception 'Antspaudą deda tas, kas prisijungęs, o ne kitas asmuo.';
    end if;
    return new;
end $$;

create trigger tr_bd_antspaudai_pasirasymas before insert on bd_antspaudai
for each row execute function tr_antspaudo_pasirasymas();

-- A record of history tells of each seal, so that the last one cannot be removed unseen. It has the rights of the
-- table's owner, so that no other role needs any on the history.
create function tr_antspaudo_irasas() returns trigger
language plpgsql security definer
set search_path = pg_catalog, public, pg_temp
as $$
begin
    insert into bd_istorija (ist_laikas, ist_login, ist_stotis, ist_lentele, ist_raktas, ist_veiksmas, ist_yra)
    values (new.ant_laikas, new.ant_login, new.ant_stotis, 'bd_antspaudai', new.ant_id, 'I',
            jsonb_build_object('ant_ivykis', new.ant_ivykis, 'ant_antspaudas', new.ant_antspaudas));
    return null;
end $$;

create trigger tr_bd_antspaudai_irasas after insert on bd_antspaudai
for each row execute function tr_antspaudo_irasas();

-- A fingerprint of a value is 31 bits of a hash that the server keeps the same in all its versions, seeded by the
-- column's name; a null has one of its own.
-- The expression, as text, of the fingerprint of an expression of the given type.
create function sys_pedsako_israiska(reiksme text, tipas text, stulpelis text) returns text
language sql immutable
as $$
    select case when stulpelis = 'usr_pasw'
                then format('sys_slaptazodzio_pedsakas(%s)', reiksme)
                else format('coalesce(%s & 2147483647, %s)',
                            format(case tipas
                                   when 'bigint' then 'hashint8extended((%s)::bigint, %s)'
                                   when 'integer' then 'hashint8extended((%s)::bigint, %s)'
                                   when 'smallint' then 'hashint8extended((%s)::bigint, %s)'
                                   when 'numeric' then 'hash_numeric_extended((%s)::numeric, %s)'
                                   when 'double precision' then 'hashfloat8extended((%s)::double precision, %s)'
                                   when 'date' then 'hashint8extended(((%s)::date - ''2000-01-01''::date)::bigint, %s)'
                                   when 'bytea' then 'hashtextextended(encode(sha256(%1$s), ''hex'') || length(%1$s), %2$s)'
                                   else 'hashtextextended((%s)::text, %s)'
                                   end, reiksme, druska),
                            hashtextextended('null', druska) & 2147483647)
           end
    from (select hashtextextended(stulpelis, 0) as druska) s
$$;

-- The columns of a table without its key, in their order: name and type.
create function sys_pedsako_stulpeliai(lentele text) returns table (stulpelis text, tipas text)
language sql stable
as $$
    select attname::text, format_type(atttypid, null)
    from pg_attribute
    where attrelid = lentele::regclass and attnum > 0 and not attisdropped
      and not exists (select from pg_index
                      where indrelid = attrelid and indisprimary and attnum = any (indkey))
    order by attnum
$$;

-- Whether a table's key is one whole number.
create function sys_raktas_sveikas(lentele text) returns boolean
language sql stable
as $$
    select count(*) = 1 and bool_and(format_type(atttypid, null) in ('bigint', 'integer', 'smallint'))
    from pg_index
    join pg_attribute on attrelid = indrelid and attnum = any (indkey)
    where indrelid = lentele::regclass and indisprimary
$$;

-- The number of a row by its key, below 2^32: the key itself where it is such a number, else a hash of its text.
create function sys_eilutes_nr(raktas text, sveikas boolean) returns bigint
language sql immutable strict parallel safe
as $$
    select case when sveikas and raktas ~ '^\d{1,10}$' and raktas::bigint <= 4294967295 then raktas::bigint
                else hashtextextended(raktas, 0) & 4294967295 end
$$;

create function sys_rakto_israiska(lentele text) returns text
language sql stable
as $$
    select case when sys_raktas_sveikas(lentele)
                then format('case when %1$s between 0 and 4294967295 then %1$s::bigint '
                            'else hashtextextended(%1$s::text, 0) & 4294967295 end', min(stulpelis))
                else format('hashtextextended(%s, 0) & 4294967295',
                            string_agg(stulpelis || '::text', ' || ''|'' || ' order by nr))
           end
    from (select quote_ident(attname) as stulpelis, array_position(indkey::int2[], attnum) as nr
          from pg_index
          join pg_attribute on attrelid = indrelid and attnum = any (indkey)
          where indrelid = lentele::regclass and indisprimary) raktas
$$;

-- The fingerprint of a value's fingerprint in a row; 0 for the fingerprint 0.
create function sys_vietos_pedsakas(pedsakas bigint, nr bigint) returns bigint
language sql immutable parallel safe
as $$
    select case when pedsakas = 0 then 0 else hashint8extended(pedsakas # (nr << 31), 0) & 2147483647 end
$$;

-- The fingerprints of the rows of a table that the condition chooses: for each column the sum of the values'
-- fingerprints, the same sum with each multiplied by its row's number, and the sum of the fingerprints of both
-- together; under the empty name those of the value 1 in every row.
create function sys_pedsakai(lentele text, salyga text) returns jsonb
language plpgsql stable
as $$
declare
    israiskos text;
    poros text;
    rezultatas jsonb;
begin
    select coalesce(string_agg(format(', %s as p%s', sys_pedsako_israiska(quote_ident(stulpelis), tipas, stulpelis),
                                      nr), ''), ''),
           coalesce(string_agg(format(', %L, jsonb_build_array(coalesce(sum(p%2$s), 0)::text, '
                                      'coalesce(sum(nr * p%2$s), 0)::text, '
                                      'coalesce(sum(sys_vietos_pedsakas(p%2$s, nr)), 0)::text)', stulpelis, nr),
                               ''), '')
    into israiskos, poros
    from (select *, row_number() over () as nr from sys_pedsako_stulpeliai(lentele)) s;
    execute format('select jsonb_build_object('''', jsonb_build_array(count(*)::text, coalesce(sum(nr), 0)::text, '
                   'coalesce(sum(sys_vietos_pedsakas(1, nr)), 0)::text) %s) '
                   'from (select %s as nr %s from %I where %s) eilutes',
                   poros, sys_rakto_israiska(lentele), israiskos, lentele, salyga)
    into rezultatas;
    return rezultatas;
end $$;

-- What led from one fingerprint of a table to the other: what a record of a routine keeps in ist_pedsakas.
create function sys_pedsaku_skirtumas(buvo jsonb, yra jsonb) returns jsonb
language sql immutable parallel safe
as $$
    select jsonb_object_agg(key, jsonb_build_array(((y.value ->> 0)::numeric - (b.value ->> 0)::numeric)::text,
                                                   ((y.value ->> 1)::numeric - (b.value ->> 1)::numeric)::text,
                                                   ((y.value ->> 2)::numeric - (b.value ->> 2)::numeric)::text))
    from jsonb_each(yra) y
    join jsonb_each(buvo) b using (key)
$$;

-- A value of a record of history as an expression: the fingerprint of what it says of a column, 0 when nothing.
-- Of a password the record does not say the value but the fingerprint, in ist_pedsakas.
create function sys_iraso_israiska(puse text, stulpelis text, tipas text) returns text
language sql stable
as $$
    select case when stulpelis = 'usr_pasw'
                then format('coalesce((pedsakas -> %L ->> %s)::bigint, 0)', stulpelis,
                            case puse when 'buvo' then 0 else 1 end)
                else format('case when %1$s ? %2$L then %3$s else 0 end', puse, stulpelis,
                            case tipas
                            when 'bytea' then sys_pedsako_israiska(format('(%1$s -> %2$L ->> ''sha256'') || '
                                                                          '(%1$s -> %2$L ->> ''baitai'')',
                                                                          puse, stulpelis), 'text', stulpelis)
                            else sys_pedsako_israiska(format('%s ->> %L', puse, stulpelis), tipas, stulpelis)
                            end)
           end
$$;

-- What the records of history whose numbers lie in the intervals [[from, to], …] changed in the fingerprints of a
-- table. A record that shows a column of the key on both sides moved the row from one key to the other.
create function sys_istorijos_pedsakai(lentele text, intervalai jsonb) returns jsonb
language plpgsql stable
as $$
declare
    raktai text;
    israiskos text;
    poros text;
    rezultatas jsonb;
begin
    select string_agg(format('%%1$s ->> %L', attname), ', ' order by array_position(indkey::int2[], attnum))
    into raktai
    from pg_index
    join pg_attribute on attrelid = indrelid and attnum = any (indkey)
    where indrelid = lentele::regclass and indisprimary;
    select coalesce(string_agg(format(', %s as b%s, %s as y%2$s', sys_iraso_israiska('buvo', stulpelis, tipas), nr,
                                      sys_iraso_israiska('yra', stulpelis, tipas)), ''), ''),
           coalesce(string_agg(format(', %L, jsonb_build_array(coalesce(sum(y%2$s - b%2$s), 0)::text, '
                                      'coalesce(sum(yra_nr * y%2$s - buvo_nr * b%2$s), 0)::text, '
                                      'coalesce(sum(sys_vietos_pedsakas(y%2$s, yra_nr) - '
                                      'sys_vietos_pedsakas(b%2$s, buvo_nr)), 0)::text)',
                                      stulpelis, nr), ''), '')
    into israiskos, poros
    from (select *, row_number() over () as nr from sys_pedsako_stulpeliai(lentele)) s;
    execute format(
        'select jsonb_build_object('''', jsonb_build_array(coalesce(sum(yra_kiek - buvo_kiek), 0)::text, '
        'coalesce(sum(yra_nr * yra_kiek - buvo_nr * buvo_kiek), 0)::text, '
        'coalesce(sum(sys_vietos_pedsakas(yra_kiek, yra_nr) - sys_vietos_pedsakas(buvo_kiek, buvo_nr)), 0)::text) %1$s) '
        'from (select (veiksmas <> ''I'')::int as buvo_kiek, (veiksmas <> ''D'')::int as yra_kiek, '
        'sys_eilutes_nr(coalesce(nullif(concat_ws(''|'', %2$s), ''''), raktas), %4$L) as buvo_nr, '
        'sys_eilutes_nr(coalesce(nullif(concat_ws(''|'', %3$s), ''''), raktas), %4$L) as yra_nr %5$s '
        'from (select ist_raktas as raktas, ist_veiksmas as veiksmas, coalesce(ist_buvo::jsonb, ''{}'') as buvo, '
        'coalesce(ist_yra::jsonb, ''{}'') as yra, coalesce(ist_pedsakas::jsonb, ''{}'') as pedsakas '
        'from bd_istorija join jsonb_array_elements($1) i on ist_id between (i ->> 0)::bigint and (i ->> 1)::bigint '
        'where ist_lentele = %6$L and ist_veiksmas <> ''R'') irasai) eilutes',
        poros, format(raktai, 'buvo'), format(raktai, 'yra'), sys_raktas_sveikas(lentele), israiskos, lentele)
    into rezultatas using intervalai;
    return rezultatas;
end $$;

-- Counters are under no history: the engine's own check holds a damaged one against its index.
create index ix_sys_raktai_visi on sys_raktai (rak_lentele, rak_stulpelis, rak_paskutinis);

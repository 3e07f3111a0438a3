-- Functions that the statements of both databases use.

-- The sort key of people's text; an index over it serves the lists. upper() of the collation "C" knows the
-- letters of ASCII only, so that the key is the same wherever the database stands.
create function lt_raktas(tekstas text) returns text
language sql immutable strict parallel safe
as $$
    select replace(replace(replace(replace(replace(replace(
               translate(upper(tekstas collate "C"), 'YąĄęĘėĖįĮųŲūŪ', 'IAAEEEEIIUUUU'),
               'č', 'C~'), 'Č', 'C~'), 'š', 'S~'), 'Š', 'S~'), 'ž', 'Z~'), 'Ž', 'Z~')
$$;

create function ucase(tekstas text) returns text
language sql immutable strict parallel safe
as $$ select upper(tekstas) $$;

-- A date as text; in the format yyyy, yy, mm and dd are its parts, all else stands as written.
create function dateformat(diena date, formatas text) returns text
language sql immutable strict parallel safe
as $$
    select replace(replace(replace(replace(formatas,
               'yyyy', to_char(diena, 'YYYY')), 'yy', to_char(diena, 'YY')),
               'mm', to_char(diena, 'MM')), 'dd', to_char(diena, 'DD'))
$$;

-- The next free key of a column: each is handed out once and none below the largest one in the column.
-- The counter's row stays locked until the transaction ends; a key of a transaction that rolls back, as its
-- row, was never there.
create function getnexttablecolumnid(savininkas text, lentele text, stulpelis text) returns bigint
language plpgsql volatile
as $$
declare
    lent constant text := lower(lentele);
    stulp constant text := lower(stulpelis);
    didziausias bigint;
    raktas bigint;
begin
    if not exists (select from syscolumn join systable using (table_id)
                   where table_name = lent and column_name = stulp) then
        raise exception 'Nėra lentelės „%“ stulpelio „%“.', lentele, stulpelis;
    end if;
    insert into sys_raktai values (lent, stulp, 0) on conflict do nothing;
    perform from sys_raktai where rak_lentele = lent and rak_stulpelis = stulp for update;
    execute format('select coalesce(max(%I), 0) from %I', stulp, lent) into didziausias;
    update sys_raktai
    set rak_paskutinis = greatest(rak_paskutinis, didziausias) + 1
    where rak_lentele = lent and rak_stulpelis = stulp
    returning rak_paskutinis into raktas;
    return raktas;
end $$;

-- A key given as text, in the wording of the column that refers to it; null when it cannot be a key at all.
create function sys_raktas(raktas text, tipas regtype) returns text
language plpgsql immutable
as $$
begin
    if tipas in ('bigint'::regtype, 'integer'::regtype, 'smallint'::regtype) then
        return case when raktas::numeric = trunc(raktas::numeric) then trunc(raktas::numeric)::text end;
    end if;
    return raktas;
exception when invalid_text_representation or numeric_value_out_of_range then
    return null;
end $$;

-- How many rows refer to a key. Rows that are parts of the row itself do not count.
create function f_checkused(lentele text, stulpelis text, raktas text) returns bigint
language plpgsql stable
as $$
declare
    nuoroda record;
    kiek bigint;
    viso bigint := 0;
begin
    if not exists (select from syscolumn join systable using (table_id)
                   where table_name = lower(lentele) and column_name = lower(stulpelis)) then
        raise exception 'Nėra lentelės „%“ stulpelio „%“.', lentele, stulpelis;
    end if;
    for nuoroda in
        select rys_lentele, rys_stulpelis, sys_raktas(raktas, atttypid::regtype) as reiksme
        from sys_rysiai
        join pg_attribute on attrelid = rys_lentele::regclass and attname = rys_stulpelis
        where rys_i_lentele = lower(lentele) and rys_i_stulpelis = lower(stulpelis) and rys_sava = 0
    loop
        if nuoroda.reiksme is not null then
            execute format('select count(*) from %I where %I = %L',
                           nuoroda.rys_lentele, nuoroda.rys_stulpelis, nuoroda.reiksme) into kiek;
            viso := viso + kiek;
        end if;
    end loop;
    return viso;
end $$;

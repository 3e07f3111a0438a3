-- Persons as logins of the server. Each row of bd_usr has a role of its login name in small letters; what an
-- administrator of users, or the owner, writes there is done to the role in the same transaction.
--
-- The functions have the rights of the books' owner, who may make roles; nobody else may call them. They touch only
-- roles that belong to this institution, never one that may do more on the server than its groups may.

do $$
declare
    stulpeliai text;
begin
    select string_agg(quote_ident(attname), ', ' order by attnum) into stulpeliai
    from pg_attribute
    where attrelid = 'bd_usr'::regclass and attnum > 0 and not attisdropped and attname <> 'usr_pasw';
    execute format('revoke all on bd_usr, bd_usrkdv from %I, %I', :'ziurovai', :'buhalteriai');
    execute format('grant select (%s) on bd_usr to %I', stulpeliai, :'ziurovai');
end $$;
grant select on bd_usrkdv to :"ziurovai";
grant insert, update on bd_usrkdv to :"buhalteriai";
grant select, insert, update, delete on bd_usr, bd_usrkdv to :"administratoriai";

-- A work place that is added goes to the administrators, one that is removed is taken from everybody: bookkeepers do
-- that. Other rights are not theirs to give.
create or replace function tr_usrkdv_suteikta() returns trigger
language plpgsql
as $$
begin
    if tg_op = 'UPDATE' and (new.udv_usrid, new.udv_finid) = (old.udv_usrid, old.udv_finid)
       and new.udv_kdv & ~old.udv_kdv = 0
       or exists (select from bd_usr where usr_id = new.udv_usrid and usr_user_admin = 1) then
        return new;
    end if;
    raise exception 'Teises suteikia tik tas, kam leista administruoti vartotojus.';
end $$;
revoke all on function tr_usrkdv_suteikta() from public;

create or replace trigger tr_bd_usrkdv_suteikta before insert or update on bd_usrkdv
for each row when (not has_table_privilege('bd_usrkdv'::regclass, 'delete'))
execute function tr_usrkdv_suteikta();

create or replace function sys_prisijungimu_grupe(kuri text) returns text
language sql immutable
as $$ select :'pagrindine' || '_' || kuri $$;

create or replace function sys_prisijungimo_vardas(vardas text) returns text
language sql immutable
as $$ select nullif(lower(btrim(vardas)), '') $$;

-- What a role is to these books: 'savas' this institution's login and nothing else; 'bendras' its login and
-- a member of something else too; 'svetimas' anything else. Null: there is no such role.
create or replace function sys_prisijungimo_rusis(vardas text) returns text
language sql stable
as $$
    select case
           when rolsuper or rolcreaterole or rolcreatedb or rolreplication or rolbypassrls
                or rolname = current_user or not (true = any (savos)) then 'svetimas'
           when false = any (savos)
                or exists (select from pg_auth_members m join pg_roles p on p.oid = m.member
                           where m.roleid = r.oid and p.rolname <> current_user) then 'bendras'
           else 'savas'
           end
    from pg_roles r
    cross join lateral (select coalesce(array_agg(g.rolname in (sys_prisijungimu_grupe('ziurovai'),
                                                                sys_prisijungimu_grupe('buhalteriai'),
                                                                sys_prisijungimu_grupe('administratoriai'))),
                                        '{}') as savos
                        from pg_auth_members m join pg_roles g on g.oid = m.roleid
                        where m.member = r.oid) nariai
    where rolname = vardas
$$;

-- A person's groups.
create or replace procedure sys_prisijungimo_grupes(vardas text, perziurai integer, administratorius integer)
language plpgsql
as $$
declare
    g record;
begin
    for g in
        select sys_prisijungimu_grupe(kuri) as grupe, priklauso
        from (values ('ziurovai', coalesce(perziurai, 0) = 1), ('buhalteriai', coalesce(perziurai, 0) <> 1),
                     ('administratoriai', coalesce(administratorius, 0) = 1)) as grupes (kuri, priklauso)
    loop
        execute format(case when g.priklauso then 'grant %I to %I' else 'revoke %I from %I' end, g.grupe, vardas);
    end loop;
end $$;

-- A login of a person who has none. Without a password nobody can log in by one.
create or replace procedure sys_prisijungimas_naujas(vardas text, slaptazodis text)
language plpgsql
set password_encryption = 'scram-sha-256'
as $$
begin
    if sys_prisijungimo_rusis(vardas) = 'svetimas' then
        raise exception 'Prisijungimo vardas „%“ serveryje jau užimtas: parinkite kitą.', vardas;
    elsif sys_prisijungimo_rusis(vardas) is null then
        execute format('create role %I login password %L', vardas, nullif(slaptazodis, ''));
    end if;
exception
    when duplicate_object or unique_violation then
        raise exception 'Prisijungimo vardas „%“ serveryje jau užimtas: parinkite kitą.', vardas;
    when reserved_name then
        raise exception 'Prisijungimo vardo „%“ serveris neleidžia: parinkite kitą.', vardas;
    when insufficient_privilege then
        raise exception 'Serveris neleido sukurti prisijungimo „%“: knygų savininkui trūksta teisės kurti naudotojus.',
            vardas;
end $$;

-- A new password ends the expiry of the former one.
create or replace procedure sys_prisijungimo_slaptazodis(vardas text, slaptazodis text)
language plpgsql
set password_encryption = 'scram-sha-256'
as $$
begin
    if sys_prisijungimo_rusis(vardas) <> 'savas' then
        raise exception 'Vardu „%“ jungiamasi ir prie kitų duomenų bazių: slaptažodį keičia serverio administratorius.',
            vardas;
    end if;
    execute format('alter role %I password %L valid until ''infinity''', vardas, nullif(slaptazodis, ''));
end $$;

create or replace procedure sys_prisijungimas_kitas(buvo text, yra text)
language plpgsql
as $$
begin
    if buvo = session_user then
        raise exception 'Savo prisijungimo vardo pakeisti negalite: tai padaro kitas administratorius.';
    elsif sys_prisijungimo_rusis(buvo) <> 'savas' then
        raise exception 'Vardu „%“ jungiamasi ir prie kitų duomenų bazių: vardą keičia serverio administratorius.', buvo;
    elsif sys_prisijungimo_rusis(yra) is not null then
        raise exception 'Prisijungimo vardas „%“ serveryje jau užimtas: parinkite kitą.', yra;
    end if;
    execute format('alter role %I rename to %I', buvo, yra);
exception
    when reserved_name then
        raise exception 'Prisijungimo vardo „%“ serveris neleidžia: parinkite kitą.', yra;
end $$;

-- A login that is something else too, or that owns things of the server's administrator, only leaves the groups.
create or replace procedure sys_prisijungimas_nereikalingas(vardas text)
language plpgsql
as $$
begin
    if vardas = session_user then
        raise exception 'Savęs ištrinti negalite: tai padaro kitas administratorius.';
    end if;
    if sys_prisijungimo_rusis(vardas) = 'savas' then
        execute format('drop role %I', vardas);
    else
        execute format('revoke %I, %I, %I from %I', sys_prisijungimu_grupe('ziurovai'),
                       sys_prisijungimu_grupe('buhalteriai'), sys_prisijungimu_grupe('administratoriai'), vardas);
    end if;
exception
    when dependent_objects_still_exist then
        execute format('revoke %I, %I, %I from %I', sys_prisijungimu_grupe('ziurovai'),
                       sys_prisijungimu_grupe('buhalteriai'), sys_prisijungimu_grupe('administratoriai'), vardas);
        execute format('alter role %I nologin password null', vardas);
end $$;

-- Who logs in with a name of his own keeps the logins in step.
create or replace function sys_prisijungimas_savas() returns boolean
language sql stable
as $$
    select session_user <> current_user
       and exists (select
                   from pg_auth_members
                   join pg_roles g on g.oid = roleid and g.rolname = sys_prisijungimu_grupe('administratoriai')
                   join pg_roles p on p.oid = member and p.rolname = session_user)
$$;

-- Where all share the login of the books' owner they keep the logins in step too, if he may make any.
create or replace function sys_prisijungimas_bendras() returns boolean
language sql stable
as $$
    select sys_savininkas(session_user)
       and exists (select from pg_roles where rolname = current_user and (rolcreaterole or rolsuper))
$$;

create or replace function tr_usr_prisijungimas() returns trigger
language plpgsql security definer
set search_path = pg_catalog, public, pg_temp
as $$
declare
    savas constant boolean := sys_prisijungimas_savas();
    buvo text;
    yra text;
    liko boolean;
begin
    if not savas and not sys_prisijungimas_bendras() then
        return null;
    end if;
    if tg_op <> 'INSERT' then
        buvo := sys_prisijungimo_vardas(old.usr_name);
    end if;
    if tg_op <> 'DELETE' then
        yra := sys_prisijungimo_vardas(new.usr_name);
    end if;
    if coalesce(sys_prisijungimo_rusis(buvo), 'svetimas') = 'svetimas' then
        buvo := null;
    end if;
    -- With the shared login people work without logins of their own: one that cannot follow is no reason to refuse.
    if not savas and sys_prisijungimo_rusis(yra) = 'svetimas' then
        yra := null;
    end if;
    if yra is null or not savas and buvo <> yra and sys_prisijungimo_rusis(buvo) = 'bendras' then
        if buvo is not null then
            call sys_prisijungimas_nereikalingas(buvo);
        end if;
        buvo := null;
    end if;
    if yra is null then
        return null;
    end if;
    if yra = session_user and new.usr_user_admin is distinct from 1 then
        raise exception 'Savo teisės administruoti vartotojus atimti negalite: tai padaro kitas administratorius.';
    end if;
    liko := buvo is null and sys_prisijungimo_rusis(yra) = 'savas';
    if buvo is null then
        call sys_prisijungimas_naujas(yra, new.usr_pasw);
    elsif buvo <> yra then
        call sys_prisijungimas_kitas(buvo, yra);
    end if;
    if liko or buvo is not null and old.usr_pasw is distinct from new.usr_pasw
               and (savas or sys_prisijungimo_rusis(yra) = 'savas') then
        call sys_prisijungimo_slaptazodis(yra, new.usr_pasw);
    end if;
    call sys_prisijungimo_grupes(yra, new.usr_perziurai, new.usr_user_admin);
    return null;
end $$;

create or replace trigger tr_bd_usr_prisijungimas after insert or update or delete on bd_usr
for each row execute function tr_usr_prisijungimas();

-- Logins for all who have none, and for nobody else; told are those who get none, and why, and the logins that ended.
create or replace function sys_prisijungimai_visiems() returns setof text
language plpgsql
as $$
declare
    u record;
begin
    for u in
        select rolname as vardas
        from pg_roles
        where rolcanlogin and sys_prisijungimo_rusis(rolname) = 'savas'
          and not exists (select from bd_usr where sys_prisijungimo_vardas(usr_name) = rolname)
        order by rolname
    loop
        call sys_prisijungimas_nereikalingas(u.vardas);
        return next format('Prisijungimas prie serverio „%s“ panaikintas: tokio vartotojo nėra.', u.vardas);
    end loop;
    for u in
        select sys_prisijungimo_vardas(usr_name) as vardas, usr_pasw, usr_perziurai, usr_user_admin
        from bd_usr
        where sys_prisijungimo_vardas(usr_name) is not null
        order by usr_id
    loop
        begin
            call sys_prisijungimas_naujas(u.vardas, u.usr_pasw);
            call sys_prisijungimo_grupes(u.vardas, u.usr_perziurai, u.usr_user_admin);
        exception when others then
            return next sqlerrm;
        end;
    end loop;
end $$;

do $$
declare
    r record;
begin
    for r in
        select oid::regprocedure as rutina from pg_proc
        where pronamespace = 'public'::regnamespace
          and (proname like 'sys\_prisijung%' or proname = 'tr_usr_prisijungimas')
    loop
        execute format('revoke all on routine %s from public', r.rutina);
    end loop;
end $$;

-- What the database keeps by itself.

-- A department's code is unique without regard to case; upper() of SQLite knows the letters of ASCII only.
create unique index ix_bd_pad_kodas on bd_pad (
    upper(replace(replace(replace(replace(replace(replace(replace(replace(replace(pad_kodas,
        'ą', 'Ą'), 'č', 'Č'), 'ę', 'Ę'), 'ė', 'Ė'), 'į', 'Į'), 'š', 'Š'), 'ų', 'Ų'), 'ū', 'Ū'), 'ž', 'Ž')));

-- A counterparty's contracts go with it.
create trigger tr_bd_dbkrasm_sutartys after delete on bd_dbkrasm
begin
    delete from bd_dbkrsut where dks_dkaid = old.dka_id;
end;

-- The total of an estimate's corrections: of a quarter its own, of the yearly row all four. Everything that
-- changes a total writes sam_jveid of the rows concerned once more, which brings this trigger about.
create trigger tr_bd_samatos_kor after update of sam_jveid, sam_perid on bd_samatos
begin
    update bd_samatos
    set sam_sam_kor = coalesce((
            select round(sum(case new.sam_perid - y.sam_perid
                             when 0 then sak_i_ketv + sak_ii_ketv + sak_iii_ketv + sak_iv_ketv
                             when 1 then sak_i_ketv
                             when 2 then sak_ii_ketv
                             when 3 then sak_iii_ketv
                             when 4 then sak_iv_ketv
                             end), 4)
            from bd_samatos y
            join bd_samkor on sak_samid = y.sam_id
            where y.sam_jveid = new.sam_jveid
              and y.sam_perid = new.sam_perid
                  - coalesce((select per_ketv from bd_period where per_id = new.sam_perid), 0)), 0)
    where sam_id = new.sam_id;
end;

create trigger tr_bd_samatos_nauja after insert on bd_samatos
begin
    update bd_samatos set sam_jveid = sam_jveid where sam_id = new.sam_id;
end;

create trigger tr_bd_samkor_nauja after insert on bd_samkor
begin
    update bd_samatos
    set sam_jveid = sam_jveid
    where sam_id in (select r.sam_id
                     from bd_samatos y
                     join bd_samatos r on r.sam_jveid = y.sam_jveid
                                      and r.sam_perid between y.sam_perid and y.sam_perid + 4
                     where y.sam_id = new.sak_samid);
end;

create trigger tr_bd_samkor_keista after update on bd_samkor
begin
    update bd_samatos
    set sam_jveid = sam_jveid
    where sam_id in (select r.sam_id
                     from bd_samatos y
                     join bd_samatos r on r.sam_jveid = y.sam_jveid
                                      and r.sam_perid between y.sam_perid and y.sam_perid + 4
                     where y.sam_id in (old.sak_samid, new.sak_samid));
end;

create trigger tr_bd_samkor_trinta after delete on bd_samkor
begin
    update bd_samatos
    set sam_jveid = sam_jveid
    where sam_id in (select r.sam_id
                     from bd_samatos y
                     join bd_samatos r on r.sam_jveid = y.sam_jveid
                                      and r.sam_perid between y.sam_perid and y.sam_perid + 4
                     where y.sam_id = old.sak_samid);
end;

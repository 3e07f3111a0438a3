-- What every database of the system answers about itself.

create view dummy as select 1 as dummy_col;

-- The tables that people fill; those by which the database knows itself are left out.
create view systable as
select rowid as table_id, name as table_name
from sqlite_schema
where type = 'table' and name not glob 'sqlite_*' and name not glob 'sys_*' and name <> 'bd_versija';

create view syscolumn as
select table_id, c.cid + 1 as column_id, c.name as column_name
from systable, pragma_table_info(table_name) c
order by table_id, column_id;

-- Every reference of a column to a key: the foreign keys and those that sys_nuorodos adds.
-- rys_sava = 1: the referring row is a part of the other and goes with it.
create view sys_rysiai as
select t.name as rys_lentele, f."from" as rys_stulpelis, lower(f."table") as rys_i_lentele,
       f."to" as rys_i_stulpelis, f.on_delete = 'CASCADE' as rys_sava
from sqlite_schema t, pragma_foreign_key_list(t.name) f
where t.type = 'table'
union all
select nuo_lentele, nuo_stulpelis, nuo_i_lentele, nuo_i_stulpelis, nuo_sava
from sys_nuorodos;

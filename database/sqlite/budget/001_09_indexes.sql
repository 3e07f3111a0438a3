-- Indexes for joins, lists and references. Names are ordered by their Lithuanian sort key.

create index ix_bd_fin_pavad on bd_fin (lt_raktas(fin_pavad), fin_pavad);
create index ix_bd_fin_dir on bd_fin (lt_raktas(fin_dir), fin_dir);
create index ix_bd_fin_savivaldybe on bd_fin (fin_savivaldybe);
create index ix_bd_usrkdv_finid on bd_usrkdv (udv_finid);
create index bleil_kod on bd_baleil (bel_kod);
create index ix_bd_balsas_balkod on bd_balsas (bss_balkod);

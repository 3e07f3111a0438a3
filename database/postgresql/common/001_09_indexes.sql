-- Indexes of the tables of both databases. Names are ordered by their Lithuanian sort key.

create index ix_bd_savivaldybes_pavad
    on bd_savivaldybes (lt_raktas(sav_pavad) collate "C" nulls first, sav_pavad nulls first);

-- The journal of a month is read in the order of its documents.

drop index ix_bd_irasai_perid;
create index ix_bd_irasai_perid on bd_irasai (irs_perid, irs_data, irs_dok, irs_id);

-- Indexes for joins, lists and references. Names are ordered by their Lithuanian sort key.

-- The chart of accounts and the classification.
create index ix_bd_sasplan_tevid on bd_sasplan (sas_tevid);
create index ix_bd_sasplan_pavad on bd_sasplan (lt_raktas(sas_pavad), sas_pavad);
create index ix_bd_jve_islid_tevid_kodas on bd_jve (jve_islid, jve_tevid, jve_kodas);
create index ix_bd_jve_tevid on bd_jve (jve_tevid);
create index ix_bd_fun_tevid_kodas on bd_fun (fun_tevid, fun_kodas);

-- Catalogues.
create index ix_bd_bankai_pavad on bd_bankai (lt_raktas(bnk_pavad), bnk_pavad);
create index ix_bd_bankai_bnkkodas on bd_bankai (bnk_bnkkodas);
create index ix_bd_prg_pavad on bd_prg (lt_raktas(prg_pavad), prg_pavad);
create index ix_bd_prg_kla_kod on bd_prg (prg_kla_kod);
create index ix_bd_prg_trnid on bd_prg (prg_trnid);
create index ix_bd_pad_pavad on bd_pad (lt_raktas(pad_pavad), pad_pavad);
create index ix_bd_laikymo_vieta_padid on bd_laikymo_vieta (lv_padid);
create index ix_bd_kasos_pavad on bd_kasos (lt_raktas(kas_pavad), kas_pavad);
create index ix_bd_kasos_sasid on bd_kasos (kas_sasid);
create index ix_bd_einsas_nr on bd_einsas (ein_nr);
create index ix_bd_einsas_sasid on bd_einsas (ein_sasid);
create index ix_bd_einsas_bank_kod on bd_einsas (ein_bank_kod);
create index ix_bd_einsas_bank_pav on bd_einsas (lt_raktas(ein_bank_pav), ein_bank_pav);
create unique index ix_bd_nuomasm_kod on bd_nuomasm (nuom_kod);
create index ix_bd_nuomasm_pavad on bd_nuomasm (lt_raktas(nuom_pavad), nuom_pavad);
create index ix_bd_nuomasm_sasid on bd_nuomasm (nuom_sasid);
create index ix_bd_nuomasm_sasid2 on bd_nuomasm (nuom_sasid2);
create index ix_bd_atsasm_pav on bd_atsasm (lt_raktas(ats_pav), ats_pav);
create index ix_bd_atsasm_sasid on bd_atsasm (ats_sasid);
create index ix_bd_atsasm_prgid on bd_atsasm (ats_prgid);
create index ix_bd_matasm_pavad on bd_matasm (lt_raktas(mat_pavad), mat_pavad);
create index ix_bd_matasm_padid on bd_matasm (mat_padid);
create index ix_bd_matasm_prgid on bd_matasm (mat_prgid);
create index ix_bd_org_savivaldybe on bd_org (org_savivaldybe);

-- Counterparties. The unique code is what keeps two stations from giving the same one.
create unique index ix_bd_dbkrasm_kod on bd_dbkrasm (dka_kod);
create index ix_bd_dbkrasm_pavad on bd_dbkrasm (lt_raktas(dka_pavad), dka_pavad);
create index ix_bd_dbkrasm_i_kod on bd_dbkrasm (dka_i_kod);
create index ix_bd_dbkrasm_bank_kod on bd_dbkrasm (dka_bank_kod);
create index ix_bd_dbkrasm_bank_pav on bd_dbkrasm (lt_raktas(dka_bank_pav), dka_bank_pav);
create index ix_bd_dbkrasm_sasid on bd_dbkrasm (dka_sasid);
create index ix_bd_dbkrasm_sasid_2 on bd_dbkrasm (dka_sasid_2);
create index ix_bd_dbkrsut_dkaid on bd_dbkrsut (dks_dkaid);

-- Balances.
create index ix_bd_saslik_perid_sasid on bd_saslik (ssl_perid, ssl_sasid);
create index ix_bd_saslik_sasid on bd_saslik (ssl_sasid);
create index ix_bd_isllik_perid on bd_isllik (sml_perid);
create index ix_bd_dbkrlik_perid on bd_dbkrlik (dkl_perid);
create index ix_bd_dbkrlik_dkaid on bd_dbkrlik (dkl_dkaid);
create index ix_bd_dbkrlik_sasid on bd_dbkrlik (dkl_sasid);
create index ix_bd_dbkrlik_padid on bd_dbkrlik (dkl_padid);

-- Form, templates and estimates.
create index bleil_kod on bd_baleil (bel_kod);
create index ix_bd_balsas_balkod on bd_balsas (bss_balkod);
create index ix_bd_balsas_sasid on bd_balsas (bss_sasid);
create index ix_bd_oprsaskor_sasid on bd_oprsaskor (osk_sasid);
create index ix_bd_samatos_perid on bd_samatos (sam_perid);
create index ix_bd_samkor_samid_data on bd_samkor (sak_samid, sak_data);

-- Fixed assets.
create index ix_it_turtas_pitid on it_turtas (tur_pitid);
create index ix_it_turtas_patid on it_turtas (tur_patid);
create index ix_it_turtas_lvid on it_turtas (tur_lvid);
create index ix_it_turtas_matid on it_turtas (tur_matid);
create index ix_it_turtas_objid on it_turtas (tur_objid);
create index ix_it_turtas_sasid on it_turtas (tur_sasid);

-- The journal is large: a reference is indexed only where there is one.
create index ix_bd_irasai_perid on bd_irasai (irs_perid);
create index ix_bd_irasai_sasid on bd_irasai (irs_sasid);
create index ix_bd_irasai_dkaid on bd_irasai (irs_dkaid) where irs_dkaid is not null;
create index ix_bd_irasai_padid on bd_irasai (irs_padid) where irs_padid is not null;
create index ix_bd_irasai_jveid on bd_irasai (irs_jveid) where irs_jveid is not null;
create index ix_bd_irasai_matid on bd_irasai (irs_matid) where irs_matid is not null;
create index ix_bd_irasai_atsid on bd_irasai (irs_atsid) where irs_atsid is not null;
create index ix_bd_irasai_kasid on bd_irasai (irs_kasid) where irs_kasid is not null;
create index ix_bd_irasai_einid on bd_irasai (irs_einid) where irs_einid is not null;

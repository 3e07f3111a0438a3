-- References that no foreign key states.
--
-- Periods: the start-of-work set-up removes every period and writes the first six anew, while balances and
-- estimates stay where they are.
-- Accounts and banks of a counterparty, and what a department refers to: a list leaves out, or shows nothing
-- for, what it cannot find; the activity 1 is written even where there is none.
-- Contracts: that of a counterparty not yet saved stands under 0.

insert into sys_nuorodos (nuo_lentele, nuo_stulpelis, nuo_i_lentele, nuo_i_stulpelis, nuo_sava) values
    ('bd_saslik', 'ssl_perid', 'bd_period', 'per_id', 0),
    ('bd_isllik', 'sml_perid', 'bd_period', 'per_id', 0),
    ('bd_dbkrlik', 'dkl_perid', 'bd_period', 'per_id', 0),
    ('bd_samatos', 'sam_perid', 'bd_period', 'per_id', 0),
    ('bd_irasai', 'irs_perid', 'bd_period', 'per_id', 0),
    ('bd_dbkrasm', 'dka_sasid', 'bd_sasplan', 'sas_id', 0),
    ('bd_dbkrasm', 'dka_sasid_2', 'bd_sasplan', 'sas_id', 0),
    ('bd_dbkrasm', 'dka_bank_kod', 'bd_bankai', 'bnk_kodas', 0),
    ('bd_einsas', 'ein_bank_kod', 'bd_bankai', 'bnk_kodas', 0),
    ('bd_pad', 'pad_vklid', 'du_veikl', 'vkl_id', 0),
    ('bd_pad', 'pad_sasid', 'bd_sasplan', 'sas_id', 0),
    ('bd_pad', 'pad_sasid2', 'bd_sasplan', 'sas_id', 0),
    ('bd_pad', 'pad_funid', 'bd_fun', 'fun_id', 0),
    ('bd_pad', 'pad_islid', 'bd_asgisl', 'isl_id', 0),
    ('bd_dbkrsut', 'dks_dkaid', 'bd_dbkrasm', 'dka_id', 1);

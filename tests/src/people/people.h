#pragma once

#include "src/people/Atsasmlist.h"
#include "src/people/Chatasm.h"
#include "src/people/Chmatasm.h"
#include "src/people/Matasm.h"
#include "tests/src/catalogue.h"

using Atsasmlist::TAtsAsmFrm;
using Chatasm::TEditAtAsmDlg;
using Chmatasm::TEditMatAsmDlg;
using Matasm::TMatAsmFrm;

// Books with two positions, two departments and a detail account.
template<auto &listGlobal, auto &dialogGlobal> class People : public OnCatalogue<listGlobal, dialogGlobal> {
protected:
    void SetUp() override
    {
        OnOpenBooks::SetUp();
        advances = this->account("2290001");
        for (const char *sql :
             {"insert into bd_prg (prg_id, prg_pavad) values (5, 'Direktorius')",
              "insert into bd_prg (prg_id, prg_pavad) values (7, 'Ūkvedys')",
              "insert into bd_pad (pad_id, pad_pavad, pad_kodas) values (3, 'Mokykla', '1')",
              "insert into bd_pad (pad_id, pad_pavad, pad_kodas) values (4, 'Šokių salė', '2')"})
            this->books().ExecSQL(sql);
    }

    int advances = 0;
};

#pragma once

class QWidget;

// How the chart-of-accounts picker is opened.
struct TSasPick {
    bool anyAccount = true;      // false: detail accounts only, summary accounts only open
    unsigned char firstView = 2; // 1: the tree; 2: the list of all accounts ordered by number
};

// Opens the chart-of-accounts picker modally, with an account current. The account chosen; 0 when cancelled.
double pickAccount(QWidget *owner, const TSasPick &pick, double current);

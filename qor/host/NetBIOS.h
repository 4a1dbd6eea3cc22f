// The NetBIOS structures LANInfo's NetBIOS helpers take, with the layouts of
// the NetBIOS interface.
#pragma once

#include "qor/platform/Win32Types.h"

#define MAX_LANA 254
#define NCBNAMSZ 16
#define NRC_GOODRET 0x00
#define NRC_OPENERR 0x3F  // NetBIOS not loaded

struct _LANA_ENUM {
    BYTE length;
    BYTE lana[MAX_LANA + 1];
};
using LANA_ENUM = _LANA_ENUM;

struct _ADAPTER_STATUS {
    BYTE adapter_address[6];
    BYTE rev_major;
    BYTE reserved0;
    BYTE adapter_type;
    BYTE rev_minor;
    WORD duration;
    WORD frmr_recv;
    WORD frmr_xmit;
    WORD iframe_recv_err;
    WORD xmit_aborts;
    DWORD xmit_success;
    DWORD recv_success;
    WORD iframe_xmit_err;
    WORD recv_buff_unavail;
    WORD t1_timeouts;
    WORD ti_timeouts;
    DWORD reserved1;
    WORD free_ncbs;
    WORD max_cfg_ncbs;
    WORD max_ncbs;
    WORD xmit_buf_unavail;
    WORD max_dgram_size;
    WORD pending_sess;
    WORD max_cfg_sess;
    WORD max_sess;
    WORD max_sess_pkt_size;
    WORD name_count;
};
using ADAPTER_STATUS = _ADAPTER_STATUS;

struct _NAME_BUFFER {
    BYTE name[NCBNAMSZ];
    BYTE name_num;
    BYTE name_flags;
};
using NAME_BUFFER = _NAME_BUFFER;

// An adapter status with room for the adapter's name table.
struct _ASTAT_ {
    ADAPTER_STATUS adapt;
    NAME_BUFFER NameBuff[30];
};

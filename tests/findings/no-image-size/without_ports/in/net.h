#define net_DAG_NAME "net"
#define net_dagbin_start 0

#define net_DAG_NAME "net"

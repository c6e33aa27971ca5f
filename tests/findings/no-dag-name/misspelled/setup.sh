network
sed -i 's/_DAG_NAME/_DAG_NMAE/' in/net_split_1.h

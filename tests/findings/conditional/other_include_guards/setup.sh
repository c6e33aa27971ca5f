network
sed -i '1s/.*/#if !defined(NET_SPLIT_1_H)/' in/net_split_1.h
sed -i -e '1i#ifdef __cplusplus\nextern "C" {\n#endif' -e '$a#ifdef __cplusplus\n}\n#endif' in/net_split_0.h

network
sed -n '37,61p' in/net_split_1.h | sed 's/ 8$/ 16/' >theirs
sed -i -e '37i<<<<<<< HEAD' -e '61a=======' -e '61r theirs' in/net_split_1.h
sed -i '89i>>>>>>> other' in/net_split_1.h
